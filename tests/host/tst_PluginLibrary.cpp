#include "host/HostPaths.h"
#include "host/PluginLibrary.h"
#include "tests/support/FileFixture.h"
#include "tests/support/TestObject.h"

#include <QApplication>
#include <QTemporaryDir>

class tst_PluginLibrary : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void thePlugInBesideTheProgramIsLoaded();
    void theFirstThatExistsIsTaken();
    void aMissingFile();
    void aFileThatIsNoLibrary();
    void aLibraryWithoutTheFunction();
};

void tst_PluginLibrary::thePlugInBesideTheProgramIsLoaded()
{
    const QStringList candidates = HostPaths::pluginCandidates();
    QCOMPARE(candidates.size(), 2);
    QCOMPARE(candidates.constFirst(), QCoreApplication::applicationDirPath() + QStringLiteral("/libsettingarea.so"));

    PluginLibrary library;
    QString error;
    QVERIFY2(library.load(candidates, error), qPrintable(error));
    QCOMPARE(library.path(), candidates.constFirst());
    QVERIFY(library.initFunction());
    QVERIFY(!library.initFunction()(nullptr, nullptr)); // as the contract says of a null pointer
}

void tst_PluginLibrary::theFirstThatExistsIsTaken()
{
    const QString sound = HostPaths::pluginCandidates().constFirst();
    const QTemporaryDir folder;
    const QString broken = folder.filePath(QStringLiteral("broken.so"));
    QVERIFY(writeFile(broken, "x"));

    PluginLibrary library;
    QString error;
    QVERIFY(library.load({QStringLiteral("/nowhere/a.so"), sound, broken}, error));
    QCOMPARE(library.path(), sound);
    QVERIFY(!PluginLibrary().load({broken, sound}, error)); // it is not passed over: the user is to know
}

void tst_PluginLibrary::aMissingFile()
{
    PluginLibrary library;
    QString error;
    QVERIFY(!library.load({QStringLiteral("/nowhere/a.so"), QStringLiteral("/nowhere/b.so")}, error));
    QCOMPARE(error, QStringLiteral("no such file: /nowhere/a.so, /nowhere/b.so"));
    QVERIFY(!library.initFunction());
    QCOMPARE(library.path(), QString());
}

void tst_PluginLibrary::aFileThatIsNoLibrary()
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("text.so"));
    QVERIFY(writeFile(file, QByteArray(100, 'x')));
    PluginLibrary library;
    QString error;
    QVERIFY(!library.load({file}, error));
    QCOMPARE(error, QStringLiteral("%1: Cannot load library %1: (%1: invalid ELF header)").arg(file));
}

void tst_PluginLibrary::aLibraryWithoutTheFunction()
{
    const QString file = QCoreApplication::applicationDirPath() + QStringLiteral("/libplugin_without_symbol.so");
    PluginLibrary library;
    QString error;
    QVERIFY(!library.load({file}, error));
    QCOMPARE(error, QStringLiteral("%1: undefined symbol: %2").arg(file, QLatin1String(SettingArea_InitSymbol)));
    QVERIFY(!library.initFunction());
}

SETTINGAREA_TEST_MAIN(tst_PluginLibrary, QApplication)
#include "tst_PluginLibrary.moc"
