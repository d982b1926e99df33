#include "multircv/CWizardSteps.h"
#include "tests/support/TestObject.h"
#include "tests/support/UpperCase.h"

#include <QApplication>
#include <QLabel>
#include <QPainter>
#include <QSvgRenderer>
#include <QSvgWidget>
#include <QVBoxLayout>

namespace {

QString iconFile(const QString& name)
{
    return QStringLiteral(":/Image/SettingArea/TypeLibrary/MultiCardWizard/%1.svg").arg(name);
}

QImage drawn(QSvgRenderer* renderer)
{
    QImage image(32, 32, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::black);
    QPainter painter(&image);
    renderer->render(&painter);
    return image;
}

QImage imageOf(const QString& name)
{
    QSvgRenderer renderer(iconFile(name));
    return renderer.isValid() ? drawn(&renderer) : QImage();
}

// Caption and text of each step, with their colours.
QStringList words(const CWizardSteps& steps)
{
    QStringList found;
    const auto labels = steps.findChildren<QLabel*>();
    for (const QLabel* label : labels)
        found.append(label->text() + QLatin1Char('|') + label->styleSheet());
    return found;
}

} // namespace

class tst_CWizardSteps : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void firstStepAtFirst();
    void highlightsTheCurrentStep();
    void iconsOfTheSteps();
    void iconsDiffer();
    void linesBetween();
    void fitsTheWizard();
    void largeTextsWrap();
    void followsTheLanguage();
};

void tst_CWizardSteps::firstStepAtFirst()
{
    const CWizardSteps steps;
    QCOMPARE(words(steps),
             QStringList({QStringLiteral("Step 1|color:#B5B5C1"), QStringLiteral("Receiver information|color:#8C8AFF"),
                          QStringLiteral("Step 2|color:rgb(115,115,128)"),
                          QStringLiteral("Topology selection|color:rgb(240,240,246)"),
                          QStringLiteral("Step 3|color:rgb(115,115,128)"),
                          QStringLiteral("Cabinet label|color:rgb(240,240,246)")}));
}

void tst_CWizardSteps::highlightsTheCurrentStep()
{
    CWizardSteps steps;
    for (const int current : {1, 2, 0}) {
        steps.setCurrentStep(current);
        for (int step = 0; step < 3; ++step) {
            QCOMPARE(words(steps).at(2 * step).section(QLatin1Char('|'), 1),
                     step == current ? QStringLiteral("color:#B5B5C1") : QStringLiteral("color:rgb(115,115,128)"));
            QCOMPARE(words(steps).at(2 * step + 1).section(QLatin1Char('|'), 1),
                     step == current ? QStringLiteral("color:#8C8AFF") : QStringLiteral("color:rgb(240,240,246)"));
        }
    }
}

void tst_CWizardSteps::iconsOfTheSteps()
{
    CWizardSteps steps;
    QList<QSvgWidget*> icons;
    const auto all = steps.findChildren<QSvgWidget*>();
    for (QSvgWidget* one : all) {
        if (one->minimumSize() == QSize(32, 32))
            icons.append(one);
    }
    QCOMPARE(icons.size(), 3);
    const QStringList keys{QStringLiteral("first"), QStringLiteral("second"), QStringLiteral("third")};
    for (const int current : {0, 1, 2}) {
        steps.setCurrentStep(current);
        for (int step = 0; step < 3; ++step) {
            const QString state = step == current ? QStringLiteral("_active") : QStringLiteral("_normal");
            QCOMPARE(drawn(icons.at(step)->renderer()), imageOf(keys.at(step) + state));
        }
    }
}

void tst_CWizardSteps::iconsDiffer()
{
    QList<QImage> images;
    for (const char* key : {"first", "second", "third"}) {
        for (const char* state : {"_normal", "_active"}) {
            const QImage image = imageOf(QLatin1String(key) + QLatin1String(state));
            QVERIFY(!image.isNull());
            QVERIFY(!images.contains(image));
            images.append(image);
        }
    }
}

void tst_CWizardSteps::linesBetween()
{
    CWizardSteps steps;
    steps.resize(496, 40);
    steps.show();
    QCoreApplication::sendPostedEvents();
    const QImage line = imageOf(QStringLiteral("step2stepline"));
    QVERIFY(!line.isNull());
    QList<QRect> lines;
    const auto all = steps.findChildren<QSvgWidget*>();
    for (QSvgWidget* one : all) {
        if (drawn(one->renderer()) == line)
            lines.append(one->geometry());
    }
    QCOMPARE(lines.size(), 2);
    const auto labels = steps.findChildren<QLabel*>();
    QVERIFY(labels.at(1)->geometry().right() < lines.at(0).left());
    QVERIFY(lines.at(0).right() < labels.at(3)->geometry().left());
    QVERIFY(labels.at(3)->geometry().right() < lines.at(1).left());
    QVERIFY(lines.at(1).right() < labels.at(5)->geometry().left());
}

// With the text size of the host, 12 pixels.
void tst_CWizardSteps::fitsTheWizard()
{
    const QFont old = QApplication::font();
    QFont font = old;
    font.setPixelSize(12);
    QApplication::setFont(font);
    const CWizardSteps steps;
    QApplication::setFont(old);
    QVERIFY2(steps.minimumSizeHint().width() <= 500, qPrintable(QString::number(steps.minimumSizeHint().width())));
}

// The width is what texts of 12 pixels need.
void tst_CWizardSteps::largeTextsWrap()
{
    const QFont old = QApplication::font();
    QFont font = old;
    int width = 0;
    for (const int size : {12, 16, 20}) {
        font.setPixelSize(size);
        QApplication::setFont(font);
        QWidget window;
        auto* const steps = new CWizardSteps;
        auto* const layout = new QVBoxLayout(&window);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->setSizeConstraint(QLayout::SetNoConstraint);
        layout->addWidget(steps);
        layout->addStretch();
        if (size == 12)
            width = steps->minimumSizeHint().width();
        window.resize(width, 200);
        window.show();
        for (int i = 0; i < 5; ++i) // the layouts settle one after the other
            QCoreApplication::sendPostedEvents();
        QCOMPARE(steps->width(), width);
        const auto labels = steps->findChildren<QLabel*>();
        for (const QLabel* label : labels) {
            const QRect all(0, 0, label->width(), 1'000);
            const QSize text = label->fontMetrics().boundingRect(all, Qt::TextWordWrap, label->text()).size();
            QVERIFY2(text.width() <= label->width() && text.height() <= label->height(), qPrintable(label->text()));
            QVERIFY(steps->rect().contains(label->geometry()));
        }
        QCOMPARE(2 * labels.at(1)->height() > 3 * labels.at(1)->fontMetrics().height(), size > 12); // lines
    }
    QApplication::setFont(old);
}

void tst_CWizardSteps::followsTheLanguage()
{
    CWizardSteps steps;
    steps.setCurrentStep(1);
    const UpperCase language;
    QCOMPARE(words(steps).at(0), QStringLiteral("STEP 1|color:rgb(115,115,128)"));
    QCOMPARE(words(steps).at(3), QStringLiteral("TOPOLOGY SELECTION|color:#8C8AFF"));
    QCOMPARE(words(steps).at(5), QStringLiteral("CABINET LABEL|color:rgb(240,240,246)"));
}

SETTINGAREA_TEST_MAIN(tst_CWizardSteps, QApplication)

#include "tst_CWizardSteps.moc"
