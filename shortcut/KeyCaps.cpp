#include "shortcut/KeyCaps.h"

#include <QKeySequence>

namespace {

QString capText(int key)
{
    if (key == Qt::Key_PageUp)
        return QStringLiteral("Page up");
    if (key == Qt::Key_PageDown)
        return QStringLiteral("Page down");
    QString text = QKeySequence(key).toString(QKeySequence::PortableText);
    if (text != QLatin1String("+"))
        text.remove(QLatin1Char('+')); // a modifier alone is written as what it is added to: "Ctrl+"
    return text;
}

} // namespace

QStringList keyCaps(const QKeySequence& keys)
{
    QStringList caps;
    for (int entry = keys.count() - 1; entry >= 0; --entry)
        caps.append(capText(keys[static_cast<uint>(entry)]));
    return caps;
}
