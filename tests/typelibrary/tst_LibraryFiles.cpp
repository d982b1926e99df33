#include "tests/multircv/WizardLibrary.h"
#include "tests/support/FileFixture.h"
#include "tests/support/TestObject.h"
#include "typelibrary/store/LibraryFiles.h"

#include <QApplication>

#include <memory>

class tst_LibraryFiles : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void copies();
    void copiesOverNothing();
    void replacesSameName();
    void replacesOtherName();
    void replacesWhatIsGone();
    void replacesNothingForeign();
    void replacesByItself();
    void replacesAFileAndALinkToIt();
    void fullDisk();
    void unwritableFolder();
    void readOnlyFolder();
    void forgetsWhatItTouches();
    void sameFile();

private:
    std::unique_ptr<WizardLibrary> m_pLibrary;
    QString m_source;
};

void tst_LibraryFiles::init()
{
    TestObject::init();
    m_pLibrary = std::make_unique<WizardLibrary>();
    m_source = m_pLibrary->addOutside(QStringLiteral("S.rcvp"), QByteArray("a\0\n\xff", 4));
    m_pLibrary->add(QStringLiteral("A.rcvp"), "old");
}

void tst_LibraryFiles::cleanup()
{
    m_pLibrary.reset();
    TestObject::cleanup();
}

void tst_LibraryFiles::copies()
{
    QVERIFY(copyIntoLibrary(m_source, m_pLibrary->path(QStringLiteral("B.rcvp"))));
    QCOMPARE(m_pLibrary->contentOf(m_pLibrary->path(QStringLiteral("B.rcvp"))), QByteArray("a\0\n\xff", 4));
    QCOMPARE(m_pLibrary->files().size(), 2);
}

void tst_LibraryFiles::copiesOverNothing()
{
    QVERIFY(!copyIntoLibrary(m_source, m_pLibrary->path(QStringLiteral("A.rcvp"))));
    QCOMPARE(m_pLibrary->files(), QStringList({QStringLiteral("A.rcvp=old")}));
}

void tst_LibraryFiles::replacesSameName()
{
    const QString file = m_pLibrary->path(QStringLiteral("A.rcvp"));
    QVERIFY(replaceInLibrary(m_source, file, file));
    QCOMPARE(m_pLibrary->contentOf(file), QByteArray("a\0\n\xff", 4));
    QCOMPARE(m_pLibrary->files().size(), 1);
}

void tst_LibraryFiles::replacesOtherName()
{
    const QString target = m_pLibrary->path(QStringLiteral("B.rcvp"));
    QVERIFY(replaceInLibrary(m_source, m_pLibrary->path(QStringLiteral("A.rcvp")), target));
    QCOMPARE(m_pLibrary->contentOf(target), QByteArray("a\0\n\xff", 4));
    QCOMPARE(m_pLibrary->files().size(), 1);
}

void tst_LibraryFiles::replacesWhatIsGone()
{
    const QString target = m_pLibrary->path(QStringLiteral("B.rcvp"));
    QVERIFY(replaceInLibrary(m_source, m_pLibrary->path(QStringLiteral("gone.rcvp")), target));
    QCOMPARE(m_pLibrary->files().size(), 2);
}

void tst_LibraryFiles::replacesNothingForeign()
{
    m_pLibrary->add(QStringLiteral("B.rcvp"), "foreign");
    QVERIFY(!replaceInLibrary(m_source, m_pLibrary->path(QStringLiteral("A.rcvp")),
                              m_pLibrary->path(QStringLiteral("B.rcvp"))));
    QCOMPARE(m_pLibrary->files(), QStringList({QStringLiteral("A.rcvp=old"), QStringLiteral("B.rcvp=foreign")}));
}

void tst_LibraryFiles::replacesByItself()
{
    const QString file = m_pLibrary->path(QStringLiteral("A.rcvp"));
    QVERIFY(replaceInLibrary(file, file, file));
    QCOMPARE(m_pLibrary->files(), QStringList({QStringLiteral("A.rcvp=old")}));
}

void tst_LibraryFiles::replacesAFileAndALinkToIt()
{
    const QString file = m_pLibrary->path(QStringLiteral("A.rcvp"));
    const QString link = m_pLibrary->path(QStringLiteral("B.rcvp"));
    QVERIFY(QFile::link(file, link));
    QVERIFY(replaceInLibrary(m_source, file, link));
    QVERIFY(!QFileInfo(link).isSymLink());
    QCOMPARE(m_pLibrary->contentOf(link), m_pLibrary->contentOf(m_source));
    QCOMPARE(m_pLibrary->files().size(), 1);
}

void tst_LibraryFiles::fullDisk()
{
    const QString file = m_pLibrary->path(QStringLiteral("A.rcvp"));
    const QString source = m_pLibrary->addOutside(QStringLiteral("L.rcvp"), QByteArray(100000, 'x'));
    {
        const DiskIsFull full(50'000);
        QVERIFY(!replaceInLibrary(source, file, file));
        QVERIFY(!replaceInLibrary(source, file, m_pLibrary->path(QStringLiteral("B.rcvp"))));
        QVERIFY(!copyIntoLibrary(source, m_pLibrary->path(QStringLiteral("B.rcvp"))));
    }
    QCOMPARE(m_pLibrary->files(), QStringList({QStringLiteral("A.rcvp=old")}));
}

// Not even root writes below a file, or into a folder that is gone.
void tst_LibraryFiles::unwritableFolder()
{
    const QString file = m_pLibrary->path(QStringLiteral("A.rcvp"));
    for (const QString& folder : {file, m_pLibrary->path(QStringLiteral("gone"))}) {
        QVERIFY(!copyIntoLibrary(m_source, folder + QStringLiteral("/B.rcvp")));
        QVERIFY(!replaceInLibrary(m_source, file, folder + QStringLiteral("/B.rcvp")));
        QCOMPARE(m_pLibrary->files(), QStringList({QStringLiteral("A.rcvp=old")}));
    }
}

void tst_LibraryFiles::readOnlyFolder()
{
    const QString file = m_pLibrary->path(QStringLiteral("A.rcvp"));
    const QString other = m_pLibrary->path(QStringLiteral("B.rcvp"));
    constexpr auto readOnly =
        QFile::ReadOwner | QFile::ExeOwner | QFile::ReadGroup | QFile::ExeGroup | QFile::ReadOther | QFile::ExeOther;
    for (const QString& folder : {m_pLibrary->root(), QFileInfo(m_pLibrary->root()).path()})
        QVERIFY(QFile::setPermissions(folder, readOnly));
    {
        const PermissionsApply permissions;
        QVERIFY(!copyIntoLibrary(m_source, other));
        QVERIFY(!replaceInLibrary(m_source, file, file));
        QVERIFY(!replaceInLibrary(m_source, file, other));
    }
    for (const QString& folder : {QFileInfo(m_pLibrary->root()).path(), m_pLibrary->root()})
        QVERIFY(QFile::setPermissions(folder, readOnly | QFile::WriteOwner));
    QCOMPARE(m_pLibrary->files(), QStringList({QStringLiteral("A.rcvp=old")}));
}

void tst_LibraryFiles::forgetsWhatItTouches()
{
    const QString old = m_pLibrary->path(QStringLiteral("A.rcvp"));
    const QString target = m_pLibrary->add(QStringLiteral("B.rcvp"), "b");
    md5OfFile(old);
    md5OfFile(target);
    QVERIFY(QFile::remove(target));
    QVERIFY(TypeFileInfoCache::instance().find(old).known != 0);
    QVERIFY(replaceInLibrary(m_source, old, target));
    QCOMPARE(TypeFileInfoCache::instance().find(old).known, std::uint8_t{0});
    QCOMPARE(TypeFileInfoCache::instance().find(target).known, std::uint8_t{0});

    md5OfFile(target);
    QVERIFY(QFile::remove(target));
    QVERIFY(copyIntoLibrary(m_source, target));
    QCOMPARE(TypeFileInfoCache::instance().find(target).known, std::uint8_t{0});
}

void tst_LibraryFiles::sameFile()
{
    const QString file = m_pLibrary->path(QStringLiteral("A.rcvp"));
    const QString link = m_pLibrary->path(QStringLiteral("link"));
    QVERIFY(QFile::link(file, link));
    QVERIFY(isSameFile(file, link));
    QVERIFY(isSameFile(file, m_pLibrary->root() + QStringLiteral("/../library/A.rcvp")));
    QVERIFY(!isSameFile(file, m_source));
    QVERIFY(!isSameFile(QStringLiteral("/gone"), QStringLiteral("/gone")));
    QVERIFY(!isSameFile({}, {}));
}

SETTINGAREA_TEST_MAIN(tst_LibraryFiles, QApplication)

#include "tst_LibraryFiles.moc"
