#include "shortcut/CShortcutLabel.h"
#include "tests/support/TestObject.h"

#include <QApplication>
#include <QKeySequence>
#include <QLabel>

class tst_CShortcutLabel : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void size();
    void nameAtTheLeftAndCapsAtTheRight();
    void withoutKeys();
    void anotherName();
    void textsArePlain();
};

namespace {

// The labels from left to right: the name, then the caps.
QVector<QLabel*> labels(const CShortcutLabel& row)
{
    QVector<QLabel*> found = row.findChildren<QLabel*>().toVector();
    std::sort(found.begin(), found.end(), [](const QLabel* a, const QLabel* b) { return a->x() < b->x(); });
    return found;
}

// Lays the row out as wide as it is in the panel.
void layOut(CShortcutLabel& row)
{
    row.resize(row.sizeHint());
    row.show();
}

} // namespace

void tst_CShortcutLabel::size()
{
    const CShortcutLabel row(QStringLiteral("Copy"), QKeySequence(Qt::Key_C, Qt::CTRL));
    QCOMPARE(row.sizeHint(), QSize(324, 24));
    QCOMPARE(row.sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
    QCOMPARE(row.sizePolicy().verticalPolicy(), QSizePolicy::Fixed);
}

void tst_CShortcutLabel::nameAtTheLeftAndCapsAtTheRight()
{
    CShortcutLabel row(QStringLiteral("Copy"), QKeySequence(Qt::Key_C, Qt::CTRL));
    layOut(row);
    const QVector<QLabel*> found = labels(row);
    QCOMPARE(found.size(), 3);
    QCOMPARE(found[0]->text(), QStringLiteral("Copy"));
    QCOMPARE(found[0]->objectName(), QString());
    QCOMPARE(found[0]->x(), 0);
    QCOMPARE(found[0]->width(), found[0]->sizeHint().width());
    QCOMPARE(found[1]->text(), QStringLiteral("Ctrl"));
    QCOMPARE(found[2]->text(), QStringLiteral("C"));
    QCOMPARE(found[2]->geometry().right(), 323);
    for (const QLabel* cap : {found[1], found[2]}) {
        QCOMPARE(cap->objectName(), QStringLiteral("Shortcut"));
        QCOMPARE(cap->width(), cap->sizeHint().width());
    }
}

void tst_CShortcutLabel::withoutKeys()
{
    const CShortcutLabel row(QStringLiteral("Copy"), {});
    QCOMPARE(labels(row).size(), 1);
    QVERIFY(!row.findChild<QLabel*>(QStringLiteral("Shortcut")));
}

void tst_CShortcutLabel::anotherName()
{
    CShortcutLabel row(QStringLiteral("Copy"), QKeySequence(Qt::Key_C, Qt::CTRL));
    row.setText(QStringLiteral("Duplicate"));
    layOut(row);
    const QVector<QLabel*> found = labels(row);
    QCOMPARE(found.size(), 3);
    QCOMPARE(found[0]->text(), QStringLiteral("Duplicate"));
    QCOMPARE(found[1]->text(), QStringLiteral("Ctrl"));
    QCOMPARE(found[2]->text(), QStringLiteral("C"));
}

void tst_CShortcutLabel::textsArePlain()
{
    const CShortcutLabel row(QStringLiteral("<b>Copy</b>"), QKeySequence(Qt::Key_Less));
    const QVector<QLabel*> found = labels(row);
    QCOMPARE(found.size(), 2);
    for (const QLabel* label : found)
        QCOMPARE(label->textFormat(), Qt::PlainText);
}

SETTINGAREA_TEST_MAIN(tst_CShortcutLabel, QApplication)
#include "tst_CShortcutLabel.moc"
