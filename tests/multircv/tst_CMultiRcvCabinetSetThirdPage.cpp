#include "multircv/CMultiRcvCabinetSetThirdPage.h"
#include "tests/support/TestObject.h"
#include "tests/support/UpperCase.h"

#include <widgetry/CDoubleSpinBox.h>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpressionValidator>

#include <limits>

namespace {

using Page = CMultiRcvCabinetSetThirdPage;

QLineEdit* nameEdit(const Page& page)
{
    return page.findChild<QLineEdit*>(QStringLiteral("MultiRcvCabinet"));
}

CDoubleSpinBox* box(const Page& page, const char* accessibleName)
{
    const auto boxes = page.findChildren<CDoubleSpinBox*>();
    for (CDoubleSpinBox* one : boxes) {
        if (one->accessibleName() == QLatin1String(accessibleName))
            return one;
    }
    qFatal("There is no box %s", accessibleName);
    return nullptr;
}

const char* const boxNames[] = {"Weight(Kg)", "Power(W)", "Lower limit of the working voltage(V)",
                                "Upper limit of the working voltage(V)"};

QList<double> values(const Page& page)
{
    return {page.value(Page::Weight), page.value(Page::Power), page.value(Page::VoltageMin),
            page.value(Page::VoltageMax)};
}

} // namespace

class tst_CMultiRcvCabinetSetThirdPage : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void startsEmpty();
    void labels();
    void nameField();
    void forbiddenCharacters_data();
    void forbiddenCharacters();
    void allowedCharacters();
    void nameLength();
    void fourByteCharacters();
    void ownNameWithForbiddenCharacters();
    void ranges();
    void entersValues();
    void startsFromTheRecord();
    void untouchedValuesKeepTheirDigits();
    void greatestValueComesBack();
    void damagedValues_data();
    void damagedValues();
    void fieldsGiveWay();
    void tabOrder();
    void followsTheLanguage();
};

void tst_CMultiRcvCabinetSetThirdPage::startsEmpty()
{
    const Page page({}, {});
    QCOMPARE(page.typeName(), QString());
    QCOMPARE(values(page), QList<double>({0, 0, 0, 0}));
    for (const char* name : boxNames)
        QCOMPARE(box(page, name)->text(), QStringLiteral("0.00"));
}

void tst_CMultiRcvCabinetSetThirdPage::labels()
{
    const Page page({}, {});
    QMap<QString, QWidget*> buddies;
    const auto labels = page.findChildren<QLabel*>();
    for (const QLabel* label : labels)
        buddies[label->text()] = label->buddy();
    QCOMPARE(buddies.value(QStringLiteral("Type name")), nameEdit(page));
    QCOMPARE(buddies.value(QStringLiteral("Weight(Kg)")), box(page, boxNames[0]));
    QCOMPARE(buddies.value(QStringLiteral("Power(W)")), box(page, boxNames[1]));
    QCOMPARE(buddies.value(QStringLiteral("Working voltage(V)")), box(page, boxNames[2]));
    QCOMPARE(nameEdit(page)->accessibleName(), QStringLiteral("Type name"));
}

void tst_CMultiRcvCabinetSetThirdPage::nameField()
{
    const Page page({}, {});
    QCOMPARE(nameEdit(page)->maxLength(), 64);
    const auto* const validator = qobject_cast<const QRegularExpressionValidator*>(nameEdit(page)->validator());
    QVERIFY(validator);
    QCOMPARE(validator->regularExpression().pattern(),
             QString::fromUtf8("[^，?#@$%!！&*:：()|\"<>\\\\ 。；;.、？《》‘//]*"));
}

void tst_CMultiRcvCabinetSetThirdPage::forbiddenCharacters_data()
{
    QTest::addColumn<QString>("character");
    const QString forbidden = QString::fromUtf8("，?#@$%!！&*:：()|\"<>\\ 。；;.、？《》‘/");
    QCOMPARE(forbidden.size(), 30);
    for (const QChar character : forbidden)
        QTest::addRow("U+%04x", character.unicode()) << QString(character);
}

void tst_CMultiRcvCabinetSetThirdPage::forbiddenCharacters()
{
    QFETCH(QString, character);
    const Page page({}, {});
    nameEdit(page)->insert(QStringLiteral("ab"));
    nameEdit(page)->insert(character);
    QCOMPARE(page.typeName(), QStringLiteral("ab"));
    nameEdit(page)->insert(QStringLiteral("c"));
    QCOMPARE(page.typeName(), QStringLiteral("abc"));
}

void tst_CMultiRcvCabinetSetThirdPage::allowedCharacters()
{
    const Page page({}, {});
    QTest::keyClicks(nameEdit(page), QStringLiteral("P3-576x576_[1]{2}'+=~^`"));
    QCOMPARE(page.typeName(), QStringLiteral("P3-576x576_[1]{2}'+=~^`"));
    nameEdit(page)->insert(QString::fromUtf8("箱体’”"));
    QCOMPARE(page.typeName(), QString::fromUtf8("P3-576x576_[1]{2}'+=~^`箱体’”"));
}

void tst_CMultiRcvCabinetSetThirdPage::nameLength()
{
    const Page page({}, {});
    QTest::keyClicks(nameEdit(page), QString(70, QLatin1Char('n')));
    QCOMPARE(page.typeName(), QString(64, QLatin1Char('n')));
}

// A character of four bytes counts twice, and is never cut in half.
void tst_CMultiRcvCabinetSetThirdPage::fourByteCharacters()
{
    const QString character = QString::fromUtf8("\xf0\xa0\xae\xb7");
    QCOMPARE(character.size(), 2);
    const Page page({}, {});
    nameEdit(page)->insert(character.repeated(64));
    QCOMPARE(page.typeName(), character.repeated(32));
    nameEdit(page)->clear();
    nameEdit(page)->insert(QStringLiteral("a"));
    for (int i = 0; i < 64; ++i)
        nameEdit(page)->insert(character);
    QCOMPARE(page.typeName(), QLatin1Char('a') + character.repeated(31));
}

// A type from elsewhere keeps its name, but nothing forbidden can be typed into it.
void tst_CMultiRcvCabinetSetThirdPage::ownNameWithForbiddenCharacters()
{
    const Page page({}, QStringLiteral("P2.5 (new)"));
    QCOMPARE(page.typeName(), QStringLiteral("P2.5 (new)"));
    QVERIFY(nameEdit(page)->hasAcceptableInput());
    nameEdit(page)->insert(QStringLiteral("/"));
    QCOMPARE(page.typeName(), QStringLiteral("P2.5 (new)"));
    nameEdit(page)->selectAll();
    nameEdit(page)->insert(QStringLiteral("P3"));
    QCOMPARE(page.typeName(), QStringLiteral("P3"));

    const Page plain({}, QStringLiteral("P3"));
    const auto* const validator = qobject_cast<const QRegularExpressionValidator*>(nameEdit(plain)->validator());
    QVERIFY(!validator->regularExpression().pattern().endsWith(QStringLiteral("P3")));
}

void tst_CMultiRcvCabinetSetThirdPage::ranges()
{
    const Page page({}, {});
    QCOMPARE(page.findChildren<CDoubleSpinBox*>().size(), 4);
    for (const char* name : boxNames) {
        QCOMPARE(box(page, name)->decimals(), 2);
        QCOMPARE(box(page, name)->minimum(), 0.0);
        QCOMPARE(box(page, name)->maximum(), 9999999999.0);
    }
}

void tst_CMultiRcvCabinetSetThirdPage::entersValues()
{
    const Page page({}, {});
    const char* const typed[] = {"12.34", "9999999999", "0", "48.5"};
    for (std::size_t i = 0; i < 4; ++i) {
        box(page, boxNames[i])->selectAll();
        QTest::keyClicks(box(page, boxNames[i]), QLatin1String(typed[i]));
    }
    QCOMPARE(values(page), QList<double>({12.34, 9999999999.0, 0, 48.5}));
    box(page, boxNames[1])->selectAll();
    QTest::keyClicks(box(page, boxNames[1]), QStringLiteral("99999999999")); // a digit too many
    QCOMPARE(page.value(Page::Power), 9999999999.0);
    QTest::keyClick(box(page, boxNames[1]), Qt::Key_Home);
    QTest::keyClick(box(page, boxNames[1]), Qt::Key_Minus);
    QCOMPARE(page.value(Page::Power), 9999999999.0);
    box(page, boxNames[1])->selectAll();
    QTest::keyClicks(box(page, boxNames[1]), QStringLiteral("5.678"));
    QCOMPARE(page.value(Page::Power), 5.67);
}

void tst_CMultiRcvCabinetSetThirdPage::startsFromTheRecord()
{
    SHwRcvInCabinetInfo record;
    record.weight = 12.5F;
    record.power = 300;
    record.voltageMin = 100.25F;
    record.voltageMax = 240;
    const Page page(record, QStringLiteral("Cab"));
    QCOMPARE(page.typeName(), QStringLiteral("Cab"));
    QCOMPARE(values(page), QList<double>({12.5, 300, 100.25, 240}));
    QCOMPARE(box(page, boxNames[0])->text(), QStringLiteral("12.50"));
    QCOMPARE(box(page, boxNames[2])->text(), QStringLiteral("100.25"));
}

void tst_CMultiRcvCabinetSetThirdPage::untouchedValuesKeepTheirDigits()
{
    SHwRcvInCabinetInfo record;
    record.weight = 0.1F;
    record.power = 12.345F;
    const Page page(record, {});
    QCOMPARE(box(page, boxNames[0])->text(), QStringLiteral("0.10"));
    QVERIFY(page.value(Page::Weight) == static_cast<double>(0.1F));
    QVERIFY(page.value(Page::Power) == static_cast<double>(12.345F));
    box(page, boxNames[0])->setValue(0.2);
    QVERIFY(page.value(Page::Weight) == 0.2);
}

void tst_CMultiRcvCabinetSetThirdPage::greatestValueComesBack()
{
    SHwRcvInCabinetInfo record;
    record.weight = static_cast<float>(9999999999.0);
    const Page page(record, {});
    QCOMPARE(box(page, boxNames[0])->text(), QStringLiteral("9999999999.00"));
    QVERIFY(page.value(Page::Weight) == static_cast<double>(record.weight));
}

void tst_CMultiRcvCabinetSetThirdPage::damagedValues_data()
{
    QTest::addColumn<float>("stored");
    QTest::newRow("no number") << std::numeric_limits<float>::quiet_NaN();
    QTest::newRow("infinite") << std::numeric_limits<float>::infinity();
    QTest::newRow("negative") << -1.0F;
    QTest::newRow("too great") << 1e20F;
}

void tst_CMultiRcvCabinetSetThirdPage::damagedValues()
{
    QFETCH(float, stored);
    SHwRcvInCabinetInfo record;
    record.weight = record.power = record.voltageMin = record.voltageMax = stored;
    const Page page(record, {});
    QCOMPARE(values(page), QList<double>({0, 0, 0, 0}));
}

// One below the other they have one width, which large labels make smaller.
void tst_CMultiRcvCabinetSetThirdPage::fieldsGiveWay()
{
    for (const int size : {12, 20}) {
        CMultiRcvCabinetSetThirdPage page({}, {});
        QFont font = page.font();
        font.setPixelSize(size);
        page.setFont(font);
        page.setFixedSize(498, 250);
        page.show();
        QVERIFY(QTest::qWaitForWindowExposed(&page));
        const auto placeOf = [&page](const QWidget* field) {
            return QRect(field->mapTo(&page, QPoint()), field->size());
        };
        const QRect name = placeOf(nameEdit(page));
        QCOMPARE(name.width() == 313, size == 12);
        const auto boxes = page.findChildren<CDoubleSpinBox*>();
        QCOMPARE(placeOf(boxes.at(0)).width(), name.width());
        QCOMPARE(placeOf(boxes.at(1)).width(), name.width());
        QCOMPARE(placeOf(boxes.at(2)).left(), name.left());
        QCOMPARE(placeOf(boxes.at(3)).right(), name.right());
        QVERIFY(std::abs(placeOf(boxes.at(2)).width() - placeOf(boxes.at(3)).width()) <= 1);
        QVERIFY(name.right() <= 498 - 16);
    }
}

void tst_CMultiRcvCabinetSetThirdPage::tabOrder()
{
    const Page page({}, {});
    QStringList order;
    for (const QWidget* next = page.nextInFocusChain(); next != &page; next = next->nextInFocusChain()) {
        if ((next->focusPolicy() & Qt::TabFocus) && !next->accessibleName().isEmpty())
            order.append(next->accessibleName());
    }
    QCOMPARE(order, QStringList({QStringLiteral("Type name"), QLatin1String(boxNames[0]), QLatin1String(boxNames[1]),
                                 QLatin1String(boxNames[2]), QLatin1String(boxNames[3])}));
}

void tst_CMultiRcvCabinetSetThirdPage::followsTheLanguage()
{
    const Page page({}, QStringLiteral("cab"));
    const UpperCase language;
    QStringList seen;
    const auto labels = page.findChildren<QLabel*>();
    for (const QLabel* label : labels) {
        if (label->buddy())
            seen.append(label->text());
    }
    QCOMPARE(seen, QStringList({QStringLiteral("TYPE NAME"), QStringLiteral("WEIGHT(KG)"), QStringLiteral("POWER(W)"),
                                QStringLiteral("WORKING VOLTAGE(V)")}));
    QCOMPARE(nameEdit(page)->accessibleName(), QStringLiteral("TYPE NAME"));
    const auto boxes = page.findChildren<CDoubleSpinBox*>();
    for (const CDoubleSpinBox* one : boxes)
        QCOMPARE(one->accessibleName(), one->accessibleName().toUpper());
    QCOMPARE(page.typeName(), QStringLiteral("cab"));
}

SETTINGAREA_TEST_MAIN(tst_CMultiRcvCabinetSetThirdPage, QApplication)

#include "tst_CMultiRcvCabinetSetThirdPage.moc"
