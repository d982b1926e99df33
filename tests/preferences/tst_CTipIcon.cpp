#include "preferences/CTipIcon.h"
#include "tests/support/TestObject.h"

#include <widgetry/CToolTip.h>

#include <QApplication>
#include <QHelpEvent>
#include <QSvgRenderer>
#include <QToolTip>

class tst_CTipIcon : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void isASmallPicture();
    void showsItsTooltipWrapped();
};

void tst_CTipIcon::isASmallPicture()
{
    CTipIcon icon;
    icon.show();
    QCOMPARE(icon.size(), QSize(12, 12));
    QVERIFY(icon.renderer()->isValid());
    QCOMPARE(icon.renderer()->defaultSize(), QSize(12, 12));
    QImage picture(24, 24, QImage::Format_ARGB32); // at scale 2
    picture.setDevicePixelRatio(2);
    picture.fill(Qt::transparent);
    icon.render(&picture, {}, {}, {});
    QCOMPARE(picture.pixelColor(12, 14), QColor(0xb5, 0xb5, 0xc1)); // the stem of the letter
    QCOMPARE(picture.pixelColor(0, 0).alpha(), 0);
    QCOMPARE(picture.pixelColor(12, 9).alpha(), 0); // under its dot
}

void tst_CTipIcon::showsItsTooltipWrapped()
{
    CTipIcon icon;
    const QString text =
        QStringLiteral("<b>Detect</b> ") + QString(300, QLatin1Char('m')).replace(9, 1, QLatin1Char(' '));
    icon.setToolTip(text);
    icon.show();
    QHelpEvent event(QEvent::ToolTip, {6, 6}, icon.mapToGlobal({6, 6}));
    QVERIFY(QCoreApplication::sendEvent(&icon, &event));
    QCOMPARE(QToolTip::text(), CToolTip::fromPlainText(text));
    QCOMPARE(icon.toolTip(), text);
    QToolTip::hideText();
}

SETTINGAREA_TEST_MAIN(tst_CTipIcon, QApplication)
#include "tst_CTipIcon.moc"
