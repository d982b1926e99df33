#include "tests/support/StoreFixture.h"

#include "plugin/SettingHandler.h"
#include "tests/support/FileFixture.h"

#include <QDir>
#include <QFile>

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
    if (!writeFile(path, content))
        qFatal("Cannot write %s", qPrintable(path));
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

QStringList outline(const std::vector<SSettings::TypeLibrary::STreeNode>& nodes)
{
    QStringList lines;
    appendOutline(nodes, 0, lines);
    return lines;
}
