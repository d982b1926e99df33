#include "multircv/ParameterFileChoice.h"
#include "tests/multircv/WizardLibrary.h"
#include "tests/support/TestObject.h"

#include <QApplication>

#include <memory>
#include <sys/stat.h>
#include <unistd.h>

using Kind = ParameterFileChoice::Kind;

class tst_ParameterFileChoice : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void newFileGoesIntoTheRoot();
    void unfitFiles();
    void withoutAHostEveryTypeIsSingle();
    void sameContentComesFirst();
    void sameContentUsesTheLibrarysFile();
    void sameNameIsReplacedInItsPlace();
    void sameNameTakesTheChosenSuffix();
    void ofTwoSuffixesTheChosenOneMakesRoom();
    void theVeryFileIsKept();
    void theVeryFileBehindALink();
    void changedSinceTheLastChoice();
    void unscannedFiles();
    void unreadableContentIsNobodysTwin();
    void replacedFileIsForgotten();
    void vanishedSource();
    void parameterFileByDigest();

private:
    ParameterFileChoice choose(const QString& file) const { return {file, m_pLibrary->root()}; }

    std::unique_ptr<WizardLibrary> m_pLibrary;
};

void tst_ParameterFileChoice::init()
{
    TestObject::init();
    m_pLibrary = std::make_unique<WizardLibrary>();
}

void tst_ParameterFileChoice::cleanup()
{
    m_pLibrary.reset();
    TestObject::cleanup();
}

void tst_ParameterFileChoice::newFileGoesIntoTheRoot()
{
    m_pLibrary->add(QStringLiteral("G/Other.rcvp"), "other");
    m_pLibrary->rescan();
    const ParameterFileChoice choice = choose(m_pLibrary->addOutside(QStringLiteral("A 1.rcvp"), "a"));
    QCOMPARE(choice.kind(), Kind::New);
    QCOMPARE(m_pLibrary->files(), QStringList({QStringLiteral("G/Other.rcvp=other")}));
    QCOMPARE(choice.take(), m_pLibrary->path(QStringLiteral("A 1.rcvp")));
    QCOMPARE(m_pLibrary->files(), QStringList({QStringLiteral("A 1.rcvp=a"), QStringLiteral("G/Other.rcvp=other")}));
}

void tst_ParameterFileChoice::unfitFiles()
{
    const QString multi = m_pLibrary->addOutside(QStringLiteral("M.rcvbp"), "multi");
    QCOMPARE(choose(multi).kind(), Kind::Unfit);
    QCOMPARE(choose(multi).take(), QString());
    QCOMPARE(choose(m_pLibrary->addOutside(QStringLiteral("notes.txt"), "a")).kind(), Kind::Unfit);
    QCOMPARE(choose(m_pLibrary->addOutside(QStringLiteral("capitals.RCVP"), "a")).kind(), Kind::Unfit);
    QCOMPARE(choose(QStringLiteral("/nowhere/A.rcvp")).kind(), Kind::Unfit);
    // The suffix does not make a file one of several receivers.
    QCOMPARE(choose(m_pLibrary->addOutside(QStringLiteral("S.rcvbp"), "single")).kind(), Kind::New);
    QCOMPARE(m_pLibrary->files(), QStringList());
}

void tst_ParameterFileChoice::withoutAHostEveryTypeIsSingle()
{
    const QString multi = m_pLibrary->addOutside(QStringLiteral("M.rcvbp"), "multi");
    CSettingArea::instance().setHandler(nullptr);
    QCOMPARE(choose(multi).kind(), Kind::New);
}

void tst_ParameterFileChoice::sameContentComesFirst()
{
    m_pLibrary->add(QStringLiteral("A.rcvp"), "named alike");
    m_pLibrary->add(QStringLiteral("G/B.rcvp"), "a");
    m_pLibrary->rescan();
    QCOMPARE(choose(m_pLibrary->addOutside(QStringLiteral("A.rcvp"), "a")).kind(), Kind::SameContent);
}

void tst_ParameterFileChoice::sameContentUsesTheLibrarysFile()
{
    m_pLibrary->add(QStringLiteral("G/B.rcvp"), "a");
    m_pLibrary->rescan();
    const ParameterFileChoice choice = choose(m_pLibrary->addOutside(QStringLiteral("A.rcvp"), "a"));
    QCOMPARE(choice.take(), m_pLibrary->path(QStringLiteral("G/B.rcvp")));
    QCOMPARE(m_pLibrary->files(), QStringList({QStringLiteral("G/B.rcvp=a")}));
}

void tst_ParameterFileChoice::sameNameIsReplacedInItsPlace()
{
    m_pLibrary->add(QStringLiteral("G/H/A.rcvp"), "old");
    m_pLibrary->rescan();
    const ParameterFileChoice choice = choose(m_pLibrary->addOutside(QStringLiteral("A.rcvp"), "new"));
    QCOMPARE(choice.kind(), Kind::SameName);
    QCOMPARE(choice.take(), m_pLibrary->path(QStringLiteral("G/H/A.rcvp")));
    QCOMPARE(m_pLibrary->files(), QStringList({QStringLiteral("G/H/A.rcvp=new")}));
}

void tst_ParameterFileChoice::sameNameTakesTheChosenSuffix()
{
    m_pLibrary->add(QStringLiteral("G/A.rcvbp"), "old");
    m_pLibrary->rescan();
    const ParameterFileChoice choice = choose(m_pLibrary->addOutside(QStringLiteral("A.rcvp"), "new"));
    QCOMPARE(choice.kind(), Kind::SameName);
    QCOMPARE(choice.take(), m_pLibrary->path(QStringLiteral("G/A.rcvp")));
    QCOMPARE(m_pLibrary->files(), QStringList({QStringLiteral("G/A.rcvp=new")}));
}

void tst_ParameterFileChoice::ofTwoSuffixesTheChosenOneMakesRoom()
{
    m_pLibrary->add(QStringLiteral("G/A.rcvbp"), "first in tree order");
    m_pLibrary->add(QStringLiteral("G/A.rcvp"), "old");
    m_pLibrary->rescan();
    QCOMPARE(choose(m_pLibrary->addOutside(QStringLiteral("A.rcvp"), "new")).take(),
             m_pLibrary->path(QStringLiteral("G/A.rcvp")));
    QCOMPARE(m_pLibrary->files(),
             QStringList({QStringLiteral("G/A.rcvbp=first in tree order"), QStringLiteral("G/A.rcvp=new")}));
}

// The library's own file whose content has changed since the scan: its digest is not in the tree, its name is.
void tst_ParameterFileChoice::theVeryFileIsKept()
{
    const QString file = m_pLibrary->add(QStringLiteral("G/A.rcvp"), "old");
    m_pLibrary->rescan();
    m_pLibrary->add(QStringLiteral("G/A.rcvp"), "changed");
    removeFromCache(file);
    const ParameterFileChoice choice = choose(file);
    QCOMPARE(choice.kind(), Kind::SameName);
    QCOMPARE(choice.take(), file);
    QCOMPARE(m_pLibrary->files(), QStringList({QStringLiteral("G/A.rcvp=changed")}));
}

void tst_ParameterFileChoice::theVeryFileBehindALink()
{
    const QString file = m_pLibrary->add(QStringLiteral("G/A.rcvp"), "old");
    m_pLibrary->rescan();
    m_pLibrary->add(QStringLiteral("G/A.rcvp"), "changed");
    removeFromCache(file);
    const QTemporaryDir elsewhere;
    QVERIFY(QFile::link(m_pLibrary->path(QStringLiteral("G")), elsewhere.filePath(QStringLiteral("link"))));
    struct stat before = {};
    struct stat after = {};
    QCOMPARE(::stat(qPrintable(file), &before), 0);
    const ParameterFileChoice choice = choose(elsewhere.filePath(QStringLiteral("link/A.rcvp")));
    QCOMPARE(choice.kind(), Kind::SameName);
    QCOMPARE(choice.take(), file);
    QCOMPARE(::stat(qPrintable(file), &after), 0);
    QCOMPARE(after.st_ino, before.st_ino); // not a copy of itself
    QCOMPARE(m_pLibrary->files(), QStringList({QStringLiteral("G/A.rcvp=changed")}));
}

// Nothing tells the cache when a file outside of the library changes.
void tst_ParameterFileChoice::changedSinceTheLastChoice()
{
    const QString file = m_pLibrary->addOutside(QStringLiteral("A.rcvp"), "first");
    m_pLibrary->add(QStringLiteral("A.rcvp"), "first");
    m_pLibrary->rescan();
    QCOMPARE(choose(file).kind(), Kind::SameContent);
    m_pLibrary->addOutside(QStringLiteral("A.rcvp"), "second");
    QCOMPARE(choose(file).kind(), Kind::SameName);
    choose(file).take();
    QCOMPARE(m_pLibrary->files(), QStringList({QStringLiteral("A.rcvp=second")}));
}

// What came into the root folder after the scan counts, so that nothing there is taken for the chosen file.
void tst_ParameterFileChoice::unscannedFiles()
{
    const QString chosen = m_pLibrary->addOutside(QStringLiteral("A.rcvp"), "a");
    QVERIFY(QDir().mkpath(m_pLibrary->root()));
    QCOMPARE(choose(chosen).take(), m_pLibrary->path(QStringLiteral("A.rcvp")));
    QCOMPARE(choose(chosen).kind(), Kind::SameContent);
    QCOMPARE(choose(chosen).take(), m_pLibrary->path(QStringLiteral("A.rcvp")));

    m_pLibrary->add(QStringLiteral("B.rcvp"), "old");
    const ParameterFileChoice other = choose(m_pLibrary->addOutside(QStringLiteral("B.rcvp"), "new"));
    QCOMPARE(other.kind(), Kind::SameName);
    QCOMPARE(other.take(), m_pLibrary->path(QStringLiteral("B.rcvp")));
    QCOMPARE(m_pLibrary->files(), QStringList({QStringLiteral("A.rcvp=a"), QStringLiteral("B.rcvp=new")}));
}

// An entry that is no type has the empty digest, as a file that cannot be read has.
void tst_ParameterFileChoice::unreadableContentIsNobodysTwin()
{
    m_pLibrary->add(QStringLiteral("G/A.rcvp"), "a");
    m_pLibrary->add(QStringLiteral("G/notes.txt"), "notes");
    m_pLibrary->rescan();
    QVERIFY(!CTypeLibrary::instance().searchSameType(SMD5{}).isEmpty());
    QCOMPARE(choose(m_pLibrary->addOutside(QStringLiteral("N.rcvp"), "n")).kind(), Kind::New);
    if (geteuid() == 0) {
        // Nothing is unreadable for root but a file of a process that has no memory mapped.
        QVERIFY(QFile::link(QStringLiteral("/proc/self/mem"), m_pLibrary->path(QStringLiteral("U.rcvp"))));
        QVERIFY(isEmpty(md5OfFile(m_pLibrary->path(QStringLiteral("U.rcvp")))));
        QCOMPARE(choose(m_pLibrary->path(QStringLiteral("U.rcvp"))).kind(), Kind::SameName);
    }
}

void tst_ParameterFileChoice::replacedFileIsForgotten()
{
    const QString file = m_pLibrary->add(QStringLiteral("G/A.rcvp"), "multi");
    m_pLibrary->rescan();
    const SMD5 old = md5OfFile(file);
    QCOMPARE(typeOfFile(file), SSettings::TypeLibrary::STreeNode::MultiRcv);
    choose(m_pLibrary->addOutside(QStringLiteral("A.rcvp"), "new")).take();
    QVERIFY(md5OfFile(file) != old);
    QCOMPARE(typeOfFile(file), SSettings::TypeLibrary::STreeNode::SingleRcv);
}

void tst_ParameterFileChoice::vanishedSource()
{
    m_pLibrary->add(QStringLiteral("G/A.rcvp"), "old");
    m_pLibrary->rescan();
    const QString chosen = m_pLibrary->addOutside(QStringLiteral("A.rcvp"), "new");
    const ParameterFileChoice choice = choose(chosen);
    QVERIFY(QFile::remove(chosen));
    QCOMPARE(choice.take(), m_pLibrary->path(QStringLiteral("G/A.rcvp")));
    QCOMPARE(m_pLibrary->files(), QStringList({QStringLiteral("G/A.rcvp=old")}));
}

void tst_ParameterFileChoice::parameterFileByDigest()
{
    const QString multi = m_pLibrary->add(QStringLiteral("A.rcvbp"), "multi twin");
    m_pLibrary->add(QStringLiteral("G/notes.txt"), "notes");
    const QString file = m_pLibrary->add(QStringLiteral("G/H/B.rcvp"), "b");
    m_pLibrary->add(QStringLiteral("G/I/C.rcvp"), "b");
    m_pLibrary->rescan();
    const auto tree = CTypeLibrary::instance().nodes();
    QCOMPARE(parameterFileWithDigest(tree, md5OfFile(file)), file);
    QCOMPARE(parameterFileWithDigest(tree, md5OfFile(multi)), QString());
    QCOMPARE(parameterFileWithDigest(tree, SMD5{}), QString());
    QCOMPARE(parameterFileWithDigest({}, md5OfFile(file)), QString());
}

SETTINGAREA_TEST_MAIN(tst_ParameterFileChoice, QApplication)

#include "tst_ParameterFileChoice.moc"
