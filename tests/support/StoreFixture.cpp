#include "tests/support/StoreFixture.h"

#include "plugin/SettingHandler.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <thread>

#include <sys/fsuid.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

std::shared_ptr<ISettingInterfaceHandler>& currentHandler()
{
    static std::shared_ptr<ISettingInterfaceHandler> handler;
    return handler;
}

void appendOutline(const std::vector<SSettings::TypeLibrary::STreeNode>& nodes, int level, QStringList& lines)
{
    for (const auto& node : nodes) {
        lines.append(QString(level, QLatin1Char(' ')) + QLatin1Char("-gms"[node.nodeType]) + QLatin1Char(' ') +
                     node.name);
        appendOutline(node.children, level + 1, lines);
    }
}

} // namespace

std::shared_ptr<ISettingInterfaceHandler> settingHandler()
{
    return std::atomic_load(&currentHandler());
}

void setStoreHandler(std::shared_ptr<ISettingInterfaceHandler> handler)
{
    std::atomic_store(&currentHandler(), std::move(handler));
}

void StoreFixture::init()
{
    TestObject::init();
    library = std::make_unique<QTemporaryDir>();
    QVERIFY(library->isValid());
    handler = std::make_shared<FakeHandler>();
    setStoreHandler(handler);
}

void StoreFixture::cleanup()
{
    setStoreHandler(nullptr);
    handler.reset();
    library.reset();
    TestObject::cleanup();
}

QString StoreFixture::write(const QString& relativePath, const QByteArray& content)
{
    const QString path = pathOf(relativePath);
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("Cannot write %s: %s", qPrintable(path), qPrintable(file.errorString()));
    return path;
}

QString StoreFixture::makeFolder(const QString& relativePath)
{
    const QString path = pathOf(relativePath);
    QDir().mkpath(path);
    return path;
}

QString StoreFixture::pathOf(const QString& relativePath) const
{
    return library->path() + QLatin1Char('/') + relativePath;
}

QStringList StoreFixture::questionsAbout(const QString& path) const
{
    QStringList questions;
    const QStringList calls = handler->calls();
    for (const QString& call : calls) {
        if (call.endsWith(QLatin1Char('(') + path + QLatin1Char(')')))
            questions.append(call.section(QLatin1Char('('), 0, 0));
    }
    return questions;
}

void StoreFixture::withoutPrivileges(const std::function<void()>& function)
{
    std::thread user([&] {
        if (::geteuid() == 0)
            ::setfsuid(65'534); // counts for this thread only
        function();
    });
    user.join();
}

UnixSocket::UnixSocket(const QString& path)
    : m_socket(::socket(AF_UNIX, SOCK_STREAM, 0))
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const QByteArray name = QFile::encodeName(path);
    if (name.size() >= int(sizeof address.sun_path))
        return;
    std::copy(name.cbegin(), name.cend(), address.sun_path);
    m_bound = ::bind(m_socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
}

UnixSocket::~UnixSocket()
{
    ::close(m_socket);
}

QStringList outline(const std::vector<SSettings::TypeLibrary::STreeNode>& nodes)
{
    QStringList lines;
    appendOutline(nodes, 0, lines);
    return lines;
}
