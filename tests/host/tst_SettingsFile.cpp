#include "host/settings/SettingsFile.h"
#include "tests/support/FileFixture.h"
#include "tests/support/TestObject.h"

#include <QJsonDocument>
#include <QTemporaryDir>

class tst_SettingsFile : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void aMissingFileGivesTheDefaults();
    void whatIsSavedIsLoaded();
    void onlyTheOwnerMayRead();
    void aFileThatCannotBeClosedToOthersIsAFailure();
    void unknownKeysSurviveASave();
    void thePreviousGenerationIsKept();
    void noGenerationKeepsAPasswordThatHasMoved();
    void nothingIsWrittenWhenNothingHasChanged();
    void aDamagedFileIsSetAside_data();
    void aDamagedFileIsSetAside();
    void theGenerationBeforeADamagedFileIsUsed();
    void aDamagedFileThatALinkLeadsToIsKept_data();
    void aDamagedFileThatALinkLeadsToIsKept();
    void aDamagedFileStaysOnAFullDisk();
    void severalDamagedFilesAreKept();
    void aFileThatWasDamagedMeanwhileIsSetAside();
    void whatIsNoFileIsLeftAlone_data();
    void whatIsNoFileIsLeftAlone();
    void aFileOfANewerVersionIsKept();
    void whatCouldNotBeLoadedIsNotSaved();
    void aFullDiskLeavesTheFile();
    void aFolderThatCannotBeMade();

private:
    QString file(const QString& suffix = {}) const
    {
        return m_folder->filePath(QStringLiteral("settings.json")) + suffix;
    }
    unsigned modeOf(const QString& path) const;
    StoredSettings load(SettingsFile& settings);
    void save(SettingsFile& settings, int interval);

    std::unique_ptr<QTemporaryDir> m_folder;
    QStringList m_messages; // of the last load()
    QString m_error;
};

void tst_SettingsFile::init()
{
    TestObject::init();
    m_folder = std::make_unique<QTemporaryDir>();
    m_messages.clear();
    m_error.clear();
}

unsigned tst_SettingsFile::modeOf(const QString& path) const
{
    struct stat status = {};
    ::stat(QFile::encodeName(path).constData(), &status);
    return status.st_mode & 07777U;
}

StoredSettings tst_SettingsFile::load(SettingsFile& settings)
{
    m_messages.clear();
    return settings.load(m_messages);
}

// Saves settings that can be told apart by the refresh interval.
void tst_SettingsFile::save(SettingsFile& settings, int interval)
{
    StoredSettings stored;
    stored.record.monitoring.nRefreshInterval = interval;
    QVERIFY2(settings.save(stored, m_error), qPrintable(m_error));
}

void tst_SettingsFile::aMissingFileGivesTheDefaults()
{
    SettingsFile settings(file());
    QCOMPARE(load(settings).record.monitoring.nRefreshInterval, 10);
    QCOMPARE(m_messages, QStringList());
    QVERIFY(!QFile::exists(file()));
}

void tst_SettingsFile::whatIsSavedIsLoaded()
{
    SettingsFile settings(m_folder->filePath(QStringLiteral("a/b/settings.json")));
    save(settings, 77);
    SettingsFile other(settings.path());
    QCOMPARE(load(other).record.monitoring.nRefreshInterval, 77);
    QCOMPARE(m_messages, QStringList());
}

void tst_SettingsFile::onlyTheOwnerMayRead()
{
    const mode_t mask = ::umask(0);
    SettingsFile settings(file());
    save(settings, 11);
    ::umask(mask);
    QCOMPARE(modeOf(file()), 0600U);

    QVERIFY(QFile::setPermissions(file(), QFile::ReadOwner | QFile::WriteOwner | QFile::ReadOther));
    save(settings, 11); // the same again
    QCOMPARE(modeOf(file()), 0600U);

    QVERIFY(QFile::setPermissions(file(), QFile::ReadOwner | QFile::WriteOwner | QFile::ReadOther));
    save(settings, 12);
    QCOMPARE(modeOf(file()), 0600U);
    QCOMPARE(modeOf(file(QStringLiteral(".bak"))), 0600U);
}

void tst_SettingsFile::aFileThatCannotBeClosedToOthersIsAFailure()
{
    if (::geteuid() != 0)
        QSKIP("Needs a file of another user.");
    SettingsFile settings(file());
    save(settings, 11);
    for (const QString& path : {m_folder->path(), file()})
        QVERIFY(QFile::setPermissions(path, QFile::Permissions(0x7555)));
    StoredSettings same;
    same.record.monitoring.nRefreshInterval = 11;
    const PermissionsApply apply;
    QVERIFY(!settings.save(same, m_error));
    QCOMPARE(m_error, QStringLiteral("Operation not permitted"));
}

void tst_SettingsFile::unknownKeysSurviveASave()
{
    QVERIFY(writeFile(file(), R"({"later": 5, "monitoring": {"noise": 6, "refreshInterval": 20}})"));
    SettingsFile settings(file());
    QCOMPARE(load(settings).record.monitoring.nRefreshInterval, 20);
    save(settings, 30);
    const QJsonObject written = QJsonDocument::fromJson(readFile(file())).object();
    QCOMPARE(written.value(QLatin1String("later")), QJsonValue(5));
    QCOMPARE(written.value(QLatin1String("monitoring"))[QLatin1String("noise")], QJsonValue(6));
    QCOMPARE(written.value(QLatin1String("monitoring"))[QLatin1String("refreshInterval")], QJsonValue(30));
}

void tst_SettingsFile::thePreviousGenerationIsKept()
{
    SettingsFile settings(file());
    save(settings, 11);
    const QByteArray first = readFile(file());
    QVERIFY(!QFile::exists(file(QStringLiteral(".bak"))));
    save(settings, 12);
    QCOMPARE(readFile(file(QStringLiteral(".bak"))), first);
}

void tst_SettingsFile::noGenerationKeepsAPasswordThatHasMoved()
{
    SettingsFile settings(file());
    StoredSettings stored;
    stored.record.email.strPassword = QStringLiteral("first");
    QVERIFY(settings.save(stored, m_error));
    stored.record.email.strPassword = QStringLiteral("second");
    QVERIFY(settings.save(stored, m_error));
    QVERIFY(readFile(file(QStringLiteral(".bak"))).contains("first"));

    stored.record.email.strPassword.clear();
    stored.host.passwordInKeychain = true;
    QVERIFY(settings.save(stored, m_error));
    QVERIFY(!QFile::exists(file(QStringLiteral(".bak"))));
    QVERIFY(!readFile(file()).contains("second"));
    QCOMPARE(modeOf(file()), 0600U);

    stored.record.monitoring.nRefreshInterval = 20;
    QVERIFY(settings.save(stored, m_error));
    QVERIFY(QFile::exists(file(QStringLiteral(".bak"))));
}

void tst_SettingsFile::nothingIsWrittenWhenNothingHasChanged()
{
    SettingsFile settings(file());
    save(settings, 11);
    save(settings, 12);
    const QByteArray previous = readFile(file(QStringLiteral(".bak")));
    save(settings, 12);
    QCOMPARE(readFile(file(QStringLiteral(".bak"))), previous);

    QVERIFY(QFile::remove(file()));
    save(settings, 12);
    SettingsFile other(file());
    QCOMPARE(load(other).record.monitoring.nRefreshInterval, 12);
}

void tst_SettingsFile::aDamagedFileIsSetAside_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("reason");
    QTest::newRow("empty") << QByteArray() << QStringLiteral("it is not valid JSON at byte 0 (illegal value).");
    QTest::newRow("cut off") << QByteArray(R"({"monitoring": {"refresh)")
                             << QStringLiteral("it is not valid JSON at byte 25 (unterminated string).");
    QTest::newRow("garbage") << QByteArray("\x7f\x45\x4c\x46\x00\xff", 6)
                             << QStringLiteral("it is not valid JSON at byte 1 (illegal value).");
    QTest::newRow("a list") << QByteArray("[1, 2]") << QStringLiteral("it is not a JSON object.");
    QTest::newRow("far too large") << QByteArray(5 << 20, ' ')
                                   << QStringLiteral("The file is longer than 4194304 bytes.");
}

void tst_SettingsFile::aDamagedFileIsSetAside()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, reason);
    QVERIFY(writeFile(file(), content));
    SettingsFile settings(file());
    QCOMPARE(load(settings).record.monitoring.nRefreshInterval, 10);
    const QString aside = file(QStringLiteral(".damaged"));
    QCOMPARE(m_messages, (QStringList{QStringLiteral("The settings file %1 cannot be used: %2").arg(file(), reason),
                                      QStringLiteral("It was kept as %1.").arg(aside),
                                      QStringLiteral("All settings start from their defaults.")}));
    QVERIFY(!QFile::exists(file()));
    save(settings, 11);
    QCOMPARE(readFile(aside), content);
}

void tst_SettingsFile::theGenerationBeforeADamagedFileIsUsed()
{
    SettingsFile settings(file());
    save(settings, 11);
    save(settings, 12);
    QVERIFY(writeFile(file(), "{"));
    SettingsFile other(file());
    QCOMPARE(load(other).record.monitoring.nRefreshInterval, 11);
    QCOMPARE(m_messages.constLast(), QStringLiteral("The settings saved before it are used instead."));
    QCOMPARE(readFile(file(QStringLiteral(".damaged"))), QByteArray("{"));
    // Also the next time, should the program be killed before it saves.
    SettingsFile next(file());
    QCOMPARE(load(next).record.monitoring.nRefreshInterval, 11);
    QCOMPARE(m_messages, QStringList());
}

void tst_SettingsFile::aDamagedFileThatALinkLeadsToIsKept_data()
{
    QTest::addColumn<bool>("meanwhile");
    QTest::newRow("when it is loaded") << false;
    QTest::newRow("when it is saved") << true;
}

void tst_SettingsFile::aDamagedFileThatALinkLeadsToIsKept()
{
    QFETCH(bool, meanwhile);
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("elsewhere")));
    const QString target = m_folder->filePath(QStringLiteral("elsewhere/own.json"));
    QVERIFY(writeFile(target, "{}"));
    QVERIFY(QFile::link(target, file()));
    SettingsFile settings(file());
    save(settings, 11);
    save(settings, 12);
    QVERIFY(writeFile(target, "{ by hand"));
    SettingsFile other(file());
    if (meanwhile)
        save(settings, 13);
    QCOMPARE(load(other).record.monitoring.nRefreshInterval, meanwhile ? 13 : 11);
    QCOMPARE(readFile(file(QStringLiteral(".damaged"))), QByteArray("{ by hand"));
}

void tst_SettingsFile::aDamagedFileStaysOnAFullDisk()
{
    SettingsFile settings(file());
    save(settings, 11);
    save(settings, 12);
    const QByteArray damaged(100, '{');
    QVERIFY(writeFile(file(), damaged));
    {
        const DiskIsFull full(10);
        StoredSettings changed;
        QString error;
        QVERIFY(!settings.save(changed, error));
        QCOMPARE(load(settings).record.monitoring.nRefreshInterval, 11);
    }
    QCOMPARE(readFile(file()), damaged);
    QVERIFY(!QFile::exists(file(QStringLiteral(".damaged"))));
}

void tst_SettingsFile::severalDamagedFilesAreKept()
{
    for (const char* content : {"one", "two", "three"}) {
        QVERIFY(writeFile(file(), content));
        SettingsFile settings(file());
        load(settings);
    }
    QCOMPARE(readFile(file(QStringLiteral(".damaged"))), QByteArray("one"));
    QCOMPARE(readFile(file(QStringLiteral(".damaged-2"))), QByteArray("two"));
    QCOMPARE(readFile(file(QStringLiteral(".damaged-3"))), QByteArray("three"));
}

void tst_SettingsFile::aFileThatWasDamagedMeanwhileIsSetAside()
{
    SettingsFile settings(file());
    save(settings, 11);
    QVERIFY(writeFile(file(), "not ours"));
    save(settings, 12);
    QCOMPARE(readFile(file(QStringLiteral(".damaged"))), QByteArray("not ours"));
    SettingsFile other(file());
    QCOMPARE(load(other).record.monitoring.nRefreshInterval, 12);
}

void tst_SettingsFile::whatIsNoFileIsLeftAlone_data()
{
    QTest::addColumn<bool>("folder");
    QTest::newRow("folder") << true;
    QTest::newRow("FIFO") << false; // nothing may wait on it
}

// It may be anything that somebody has named by mistake.
void tst_SettingsFile::whatIsNoFileIsLeftAlone()
{
    QFETCH(bool, folder);
    QVERIFY(folder ? QDir().mkpath(file(QStringLiteral("/inside"))) : makeFifo(file()));
    SettingsFile settings(file());
    QCOMPARE(load(settings).record.monitoring.nRefreshInterval, 10);
    QCOMPARE(
        m_messages,
        (QStringList{QStringLiteral("The settings file %1 cannot be used: This is not a regular file.").arg(file()),
                     QStringLiteral("All settings start from their defaults.")}));
    QVERIFY(!settings.save({}, m_error));
    QCOMPARE(m_error, QStringLiteral("This is not a regular file."));
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot),
             QStringList{QStringLiteral("settings.json")});
    QCOMPARE(QFileInfo(file(QStringLiteral("/inside"))).isDir(), folder);
    // Settings that were saved before are used, and do not take its place.
    QVERIFY(writeFile(file(QStringLiteral(".bak")), R"({"monitoring": {"refreshInterval": 11}})"));
    QCOMPARE(load(settings).record.monitoring.nRefreshInterval, 11);
    QCOMPARE(m_messages.size(), 2);
    QCOMPARE(QFileInfo(file(QStringLiteral("/inside"))).isDir(), folder);
}

void tst_SettingsFile::aFileOfANewerVersionIsKept()
{
    const QByteArray newer = R"({"version": 2, "monitoring": {"refreshInterval": 20}, "invention": true})";
    QVERIFY(writeFile(file(), newer));
    SettingsFile settings(file());
    QCOMPARE(load(settings).record.monitoring.nRefreshInterval, 20);
    QCOMPARE(m_messages,
             QStringList{QStringLiteral(
                 "The settings were saved by a newer version of Orvel. What this version does not know is kept.")});
    QCOMPARE(readFile(file()), newer); // loading changes nothing
    save(settings, 30);
    save(settings, 40);
    QCOMPARE(readFile(file(QStringLiteral(".newer"))), newer);
    QVERIFY(!QFile::exists(file(QStringLiteral(".newer-2"))));
    const QJsonObject written = QJsonDocument::fromJson(readFile(file())).object();
    QCOMPARE(written.value(QLatin1String("version")), QJsonValue(1));
    QCOMPARE(written.value(QLatin1String("invention")), QJsonValue(true));
    load(settings);
    QCOMPARE(m_messages, QStringList());
}

void tst_SettingsFile::whatCouldNotBeLoadedIsNotSaved()
{
    // Indented this would be longer than settings may be.
    QVERIFY(writeFile(file(), R"({"later":[0)" + QByteArray(",{}").repeated(300'000) + "]}"));
    SettingsFile settings(file());
    load(settings);
    QCOMPARE(m_messages, QStringList());
    save(settings, 11);
    const QByteArray before = readFile(file());
    StoredSettings large;
    large.record.email.strPassword = QString(4 << 20, QLatin1Char('p'));
    QVERIFY(!settings.save(large, m_error));
    QCOMPARE(m_error, QStringLiteral("The file would be longer than 4194304 bytes and could not be read again."));
    QVERIFY(readFile(file()) == before);
    QCOMPARE(load(settings).record.monitoring.nRefreshInterval, 11);
    QCOMPARE(m_messages, QStringList());
}

void tst_SettingsFile::aFullDiskLeavesTheFile()
{
    SettingsFile settings(file());
    save(settings, 11);
    save(settings, 12);
    const QByteArray current = readFile(file());
    const QByteArray previous = readFile(file(QStringLiteral(".bak")));
    StoredSettings large;
    large.record.email.strPassword = QString(100'000, QLatin1Char('p'));
    // In the middle of the copy of the old file, and in the middle of the new one.
    for (const rlim_t bytes : {rlim_t(100), rlim_t(current.size() + 1000)}) {
        {
            const DiskIsFull full(bytes);
            QVERIFY(!settings.save(large, m_error));
        }
        QCOMPARE(m_error, QStringLiteral("The file could not be written whole; perhaps the disk is full."));
        QCOMPARE(readFile(file()), current);
    }
    QCOMPARE(previous.size(), current.size());
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files),
             (QStringList{QStringLiteral("settings.json"), QStringLiteral("settings.json.bak")}));
    QVERIFY(settings.save(large, m_error)); // once there is room again
}

void tst_SettingsFile::aFolderThatCannotBeMade()
{
    QVERIFY(writeFile(file(), "a file"));
    SettingsFile settings(file(QStringLiteral("/settings.json")));
    QCOMPARE(load(settings).record.monitoring.nRefreshInterval, 10);
    QVERIFY(!settings.save({}, m_error));
    QCOMPARE(m_error, QStringLiteral("The folder %1 cannot be created.").arg(file()));
    QCOMPARE(readFile(file()), QByteArray("a file"));
}

SETTINGAREA_TEST_MAIN(tst_SettingsFile, QCoreApplication)
#include "tst_SettingsFile.moc"
