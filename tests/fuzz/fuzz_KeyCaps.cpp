// The input is up to four key codes of four bytes, whatever is in them.

#include "shortcut/KeyCaps.h"
#include "tests/fuzz/Expect.h"

#include <QKeySequence>

#include <algorithm>
#include <array>
#include <cstring>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    std::array<int, 4> codes{};
    std::memcpy(codes.data(), data, std::min(size, sizeof codes));
    const QKeySequence keys(codes[0], codes[1], codes[2], codes[3]);
    const QStringList caps = keyCaps(keys);

    EXPECT(caps.size() == keys.count());
    for (int entry = 0; entry < keys.count(); ++entry) {
        const QString& cap = caps.at(keys.count() - 1 - entry);
        EXPECT(cap == QLatin1String("+") || !cap.contains(QLatin1Char('+')));
        // What a cap says does not depend on its neighbours.
        EXPECT(keyCaps(QKeySequence(keys[static_cast<uint>(entry)])) == QStringList(cap));
    }
    return 0;
}
