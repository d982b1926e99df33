#include "host/project/Project.h"
#include "tests/support/FileFixture.h"
#include "tests/support/TestObject.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QSignalSpy>
#include <QTemporaryDir>

namespace {

SMD5 digestOf(char digit)
{
    SMD5 md5;
    std::memset(md5.data, digit, 32);
    return md5;
}

QStringList namesOf(const Project& project)
{
    QStringList names;
    for (const Project::PlacedType& type : project.placedTypes())
        names.append(type.name);
    return names;
}

} // namespace

class tst_Project : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void startsEmpty();
    void placesAndRemoves();
    void placesNoDigestNowhere();
    void comparesDigestsWithoutCase();
    void savesAndLoads();
    void hasTheDocumentedContent();
    void namesItselfAfterItsFile();
    void keepsUnknownKeys();
    void savesNothingThatItCouldNotLoad();
    void keepsTheGenerationBefore();
    void clears();
    void refusesDamagedFiles_data();
    void refusesDamagedFiles();
    void refusesEveryCut();
    void refusesWhatIsNoFile();
    void keepsTheFileWhenSavingFails();

private:
    QString file(const char* name) const { return m_folder->filePath(QString::fromUtf8(name)); }

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_error;
};

void tst_Project::init()
{
    TestObject::init();
    m_folder = std::make_unique<QTemporaryDir>();
    m_error.clear();
}

void tst_Project::startsEmpty()
{
    const Project project;
    QVERIFY(!project.isModified());
    QCOMPARE(project.path(), QString());
    QCOMPARE(project.name(), QStringLiteral("Untitled"));
    QVERIFY(project.placedTypes().isEmpty());
}

void tst_Project::placesAndRemoves()
{
    Project project;
    const QSignalSpy changed(&project, &Project::notifyChanged);
    QVERIFY(project.place(digestOf('a'), QStringLiteral("A")));
    QVERIFY(project.place(digestOf('b'), QStringLiteral("B")));
    QVERIFY(!project.place(digestOf('a'), QStringLiteral("another A")));
    QCOMPARE(namesOf(project), QStringList({QStringLiteral("A"), QStringLiteral("B")}));
    QCOMPARE(project.placedTypes().first().digest, QString(32, QLatin1Char('a')));
    QVERIFY(project.places(digestOf('a')));
    QVERIFY(!project.places(digestOf('c')));
    QVERIFY(project.isModified());
    QCOMPARE(changed.count(), 2);

    QVERIFY(!project.removeAt(-1));
    QVERIFY(!project.removeAt(project.placedTypes().size()));
    QVERIFY(project.removeAt(project.indexOf(digestOf('a'))));
    QCOMPARE(project.indexOf(digestOf('a')), -1);
    QVERIFY(!project.places(digestOf('a')));
    QCOMPARE(namesOf(project), QStringList{QStringLiteral("B")});
    QCOMPARE(changed.count(), 3);
}

void tst_Project::placesNoDigestNowhere()
{
    Project project;
    QVERIFY(!project.place(SMD5{}, QStringLiteral("A")));
    QVERIFY(!project.places(SMD5{}));
    QVERIFY(!project.isModified());
}

void tst_Project::comparesDigestsWithoutCase()
{
    Project project;
    QVERIFY(project.place(digestOf('A'), QStringLiteral("A")));
    QVERIFY(project.places(digestOf('a')));
    QCOMPARE(project.placedTypes().first().digest, QString(32, QLatin1Char('a')));
}

void tst_Project::savesAndLoads()
{
    Project project;
    QVERIFY(project.place(digestOf('a'), QStringLiteral("舞台屏 \"P4\"\n")));
    QVERIFY(project.place(digestOf('0'), QString()));
    const QSignalSpy changed(&project, &Project::notifyChanged);
    QVERIFY2(project.save(file("Wall.prj"), m_error), qPrintable(m_error));
    QVERIFY(!project.isModified());
    QCOMPARE(project.path(), file("Wall.prj"));
    QCOMPARE(changed.count(), 1);

    Project other;
    QVERIFY(other.place(digestOf('c'), QStringLiteral("C")));
    const QSignalSpy otherChanged(&other, &Project::notifyChanged);
    QVERIFY2(other.load(file("Wall.prj"), m_error), qPrintable(m_error));
    QVERIFY(!other.isModified());
    QCOMPARE(other.path(), file("Wall.prj"));
    QCOMPARE(namesOf(other), QStringList({QStringLiteral("舞台屏 \"P4\"\n"), QString()}));
    QVERIFY(other.places(digestOf('a')) && other.places(digestOf('0')) && !other.places(digestOf('c')));
    QCOMPARE(otherChanged.count(), 1);
}

void tst_Project::hasTheDocumentedContent()
{
    Project project;
    QVERIFY(project.place(digestOf('a'), QStringLiteral("P4")));
    QVERIFY(project.save(file("a.prj"), m_error));
    QCOMPARE(readFile(file("a.prj")), QByteArray("{\n"
                                                 "    \"format\": \"orvel-project\",\n"
                                                 "    \"placedTypes\": [\n"
                                                 "        {\n"
                                                 "            \"digest\": \"aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa\",\n"
                                                 "            \"name\": \"P4\"\n"
                                                 "        }\n"
                                                 "    ],\n"
                                                 "    \"version\": 1\n"
                                                 "}\n"));
}

void tst_Project::namesItselfAfterItsFile()
{
    Project project;
    QVERIFY(project.save(file("Wall 2.1.prj"), m_error));
    QCOMPARE(project.name(), QStringLiteral("Wall 2.1"));
    // A path is made absolute: the working directory may be another one at the next save.
    const QString folder = QDir::currentPath();
    QVERIFY(QDir::setCurrent(m_folder->path()));
    QVERIFY(project.save(QStringLiteral("b.prj"), m_error));
    QVERIFY(QDir::setCurrent(folder));
    QCOMPARE(QFileInfo(project.path()).canonicalFilePath(), QFileInfo(file("b.prj")).canonicalFilePath());
    QVERIFY(QDir::isAbsolutePath(project.path()));
}

void tst_Project::keepsUnknownKeys()
{
    QVERIFY(writeFile(file("a.prj"), R"({"format":"orvel-project","version":1,"zoom":{"x":[1,2.5,null]},
        "placedTypes":[{"digest":"aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa","position":[3,4]}]})"));
    Project project;
    QVERIFY2(project.load(file("a.prj"), m_error), qPrintable(m_error));
    QVERIFY(project.place(digestOf('b'), QStringLiteral("B")));
    QVERIFY(project.save(file("b.prj"), m_error));
    const QJsonObject saved = QJsonDocument::fromJson(readFile(file("b.prj"))).object();
    QCOMPARE(saved.value(QLatin1String("zoom")).toObject().value(QLatin1String("x")).toArray(),
             (QJsonArray{1, 2.5, QJsonValue()}));
    const QJsonArray types = saved.value(QLatin1String("placedTypes")).toArray();
    QCOMPARE(types.size(), 2);
    QCOMPARE(types.at(0).toObject().value(QLatin1String("position")).toArray(), (QJsonArray{3, 4}));
    QCOMPARE(types.at(1).toObject().keys(), QStringList({QStringLiteral("digest"), QStringLiteral("name")}));
}

void tst_Project::savesNothingThatItCouldNotLoad()
{
    // Indented this would be longer than a project may be.
    QVERIFY(writeFile(file("a.prj"), R"({"format":"orvel-project","version":1,"placedTypes":[],"marks":[0)" +
                                         QByteArray(",{}").repeated(1'000'000) + "]}"));
    Project project;
    QVERIFY2(project.load(file("a.prj"), m_error), qPrintable(m_error));
    QVERIFY(project.place(digestOf('a'), QStringLiteral("A")));
    QVERIFY2(project.save(file("a.prj"), m_error), qPrintable(m_error));
    QVERIFY2(project.load(file("a.prj"), m_error), qPrintable(m_error));
    QCOMPARE(namesOf(project), QStringList(QStringLiteral("A")));

    const QByteArray before = readFile(file("a.prj"));
    QVERIFY(project.place(digestOf('b'), QString(Project::maxFileSize, QLatin1Char('B'))));
    QVERIFY(!project.save(file("a.prj"), m_error));
    QCOMPARE(m_error, QStringLiteral("The file would be longer than 16777216 bytes and could not be read again."));
    QVERIFY(readFile(file("a.prj")) == before);
    QVERIFY(project.isModified());
}

void tst_Project::keepsTheGenerationBefore()
{
    Project project;
    QVERIFY(project.save(file("a.prj"), m_error));
    const QByteArray first = readFile(file("a.prj"));
    QVERIFY(!QFile::exists(file("a.prj.bak")));
    QVERIFY(project.place(digestOf('a'), QStringLiteral("A")));
    QVERIFY(project.save(file("a.prj"), m_error));
    QCOMPARE(readFile(file("a.prj.bak")), first);
    QVERIFY(readFile(file("a.prj")) != first);
    Project before;
    QVERIFY(before.load(file("a.prj.bak"), m_error));
    QVERIFY(before.placedTypes().isEmpty());
}

void tst_Project::clears()
{
    QVERIFY(writeFile(file("a.prj"), R"({"format":"orvel-project","version":1,"zoom":1,
        "placedTypes":[{"digest":"aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa"}]})"));
    Project project;
    QVERIFY(project.load(file("a.prj"), m_error));
    QVERIFY(project.place(digestOf('b'), QString()));
    const QSignalSpy changed(&project, &Project::notifyChanged);
    project.clear();
    QCOMPARE(changed.count(), 1);
    QVERIFY(!project.isModified());
    QCOMPARE(project.path(), QString());
    QVERIFY(project.placedTypes().isEmpty());
    QVERIFY(project.save(file("b.prj"), m_error));
    QVERIFY(!readFile(file("b.prj")).contains("zoom"));
}

void tst_Project::refusesDamagedFiles_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("problem");
    const auto row = [](const char* name, const char* content, const char* problem) {
        QTest::newRow(name) << QByteArray(content) << QString::fromLatin1(problem);
    };
    const char noProject[] = "This is not a project file.";
    row("empty", "", "The file is damaged at byte 0: illegal value");
    row("cut off", R"({"format":"orvel-project")", "The file is damaged at byte 25: unterminated string");
    row("array", "[]", noProject);
    row("other program", R"({"format":"x","version":1,"placedTypes":[]})", noProject);
    row("no version", R"({"format":"orvel-project","placedTypes":[]})", noProject);
    row("version 0", R"({"format":"orvel-project","version":0,"placedTypes":[]})", noProject);
    row("version as text", R"({"format":"orvel-project","version":"1","placedTypes":[]})", noProject);
    row("newer", R"({"format":"orvel-project","version":2,"placedTypes":[]})",
        "The file was made by a newer program: it has format version 2, and this program reads version 1.");
    row("no types", R"({"format":"orvel-project","version":1})", "The list of placed types is missing.");
    row("types no list", R"({"format":"orvel-project","version":1,"placedTypes":{}})",
        "The list of placed types is missing.");
    row("no digest", R"({"format":"orvel-project","version":1,"placedTypes":[{"name":"A"}]})",
        "Placed type number 1 has no digest.");
    row("entry no object", R"({"format":"orvel-project","version":1,"placedTypes":[1]})",
        "Placed type number 1 has no digest.");
    row("digest too long",
        R"({"format":"orvel-project","version":1,"placedTypes":[{"digest":"aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa"},
        {"digest":"aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa\n"}]})",
        "Placed type number 2 has no digest.");
    row("digest twice",
        R"({"format":"orvel-project","version":1,"placedTypes":[{"digest":"aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa"},
        {"digest":"aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa","name":"A"}]})",
        "The type A is placed twice.");
    QTest::newRow("deep") << QByteArray(100000, '[')
                          << QStringLiteral("The file is damaged at byte 1025: too deeply "
                                            "nested document");
    QTest::newRow("too long") << QByteArray(Project::maxFileSize + 1, ' ')
                              << QStringLiteral("The file is longer than 16777216 bytes.");
}

void tst_Project::refusesDamagedFiles()
{
    QFETCH(QByteArray, content);
    QVERIFY(writeFile(file("bad.prj"), content));
    Project project;
    QVERIFY(project.save(file("a.prj"), m_error));
    QVERIFY(project.place(digestOf('a'), QStringLiteral("A")));
    const QSignalSpy changed(&project, &Project::notifyChanged);
    QVERIFY(!project.load(file("bad.prj"), m_error));
    QTEST(m_error, "problem");
    QCOMPARE(changed.count(), 0);
    QCOMPARE(namesOf(project), QStringList{QStringLiteral("A")});
    QVERIFY(project.isModified());
    QCOMPARE(project.path(), file("a.prj"));
}

void tst_Project::refusesEveryCut()
{
    Project whole;
    QVERIFY(whole.place(digestOf('a'), QStringLiteral("A")));
    QVERIFY(whole.save(file("a.prj"), m_error));
    const QByteArray content = readFile(file("a.prj"));
    Project project;
    for (int size = 0; size < content.size() - 1; ++size) { // only the line's end is not missed
        QVERIFY(writeFile(file("a.prj"), content.left(size)));
        QVERIFY(!project.load(file("a.prj"), m_error));
        QVERIFY(m_error.startsWith(QLatin1String("The file is damaged at byte ")));
        QVERIFY(project.placedTypes().isEmpty());
    }
}

void tst_Project::refusesWhatIsNoFile()
{
    Project project;
    QVERIFY(!project.load(file("a.prj"), m_error));
    QCOMPARE(m_error, QStringLiteral("No such file or directory"));
    QVERIFY(makeFifo(file("fifo.prj")));
    QVERIFY(!project.load(file("fifo.prj"), m_error));
    QCOMPARE(m_error, QStringLiteral("This is not a regular file."));
    QVERIFY(!project.save(file("fifo.prj"), m_error));
    QCOMPARE(m_error, QStringLiteral("This is not a regular file."));
    QVERIFY(!project.save(QString(), m_error));
    QCOMPARE(m_error, QStringLiteral("There is no file name."));
    QCOMPARE(project.path(), QString());
}

void tst_Project::keepsTheFileWhenSavingFails()
{
    Project project;
    QVERIFY(project.save(file("a.prj"), m_error));
    const QByteArray before = readFile(file("a.prj"));
    QVERIFY(project.place(digestOf('a'), QStringLiteral("A")));
    const QSignalSpy changed(&project, &Project::notifyChanged);
    {
        const DiskIsFull full(100);
        QVERIFY(!project.save(file("a.prj"), m_error));
        QVERIFY(!project.save(file("b.prj"), m_error));
    }
    QCOMPARE(m_error, QStringLiteral("The file could not be written whole; perhaps the disk is full."));
    QCOMPARE(readFile(file("a.prj")), before);
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files), QStringList{QStringLiteral("a.prj")});
    QVERIFY(project.isModified());
    QCOMPARE(project.path(), file("a.prj"));
    QCOMPARE(changed.count(), 0);
}

SETTINGAREA_TEST_MAIN(tst_Project, QCoreApplication)
#include "tst_Project.moc"
