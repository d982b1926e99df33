#include "tests/support/TestObject.h"

#include <widgetry/CSeparator.h>

#include <QApplication>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace {

// A window whose background no line has, with the line over its whole length.
struct Window
{
    explicit Window(CSeparator* separator)
        : line(separator)
    {
        QPalette palette;
        palette.setColor(QPalette::Window, Qt::white);
        palette.setColor(QPalette::Mid, QColor(10, 20, 30));
        window.setPalette(palette);
        window.resize(60, 40);
        auto* const layout = line->frameShape() == QFrame::HLine ? static_cast<QLayout*>(new QVBoxLayout(&window))
                                                                 : new QHBoxLayout(&window);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(line);
        window.show();
    }

    // Colours along the line, at the given distances from its start.
    QVector<QRgb> colours(std::initializer_list<int> distances)
    {
        const QImage image = window.grab().toImage().scaled(window.size()); // one pixel for each logical one
        QVector<QRgb> result;
        for (const int distance : distances) {
            const QPoint point = line->frameShape() == QFrame::HLine ? line->pos() + QPoint(distance, 0)
                                                                     : line->pos() + QPoint(0, distance);
            result.append(image.pixel(point));
        }
        return result;
    }

    QWidget window;
    CSeparator* line;
};

constexpr QRgb background = qRgb(255, 255, 255);
constexpr QRgb mid = qRgb(10, 20, 30);

} // namespace

class tst_CSeparator : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void horizontal();
    void vertical();
    void margin();
    void ownStyleSheet();
    void applicationStyleSheet();
};

void tst_CSeparator::horizontal()
{
    Window w(new CSeparator(0, QFrame::HLine));
    QCOMPARE(w.line->size(), QSize(60, 1));
    QCOMPARE(w.colours({0, 30, 59}), QVector<QRgb>(3, mid));
}

void tst_CSeparator::vertical()
{
    Window w(new CSeparator(0, QFrame::VLine));
    QCOMPARE(w.line->size(), QSize(1, 40));
    QCOMPARE(w.colours({0, 20, 39}), QVector<QRgb>(3, mid));
}

void tst_CSeparator::margin()
{
    Window horizontal(new CSeparator(5, QFrame::HLine));
    QCOMPARE(horizontal.colours({4, 5, 54, 55}), QVector<QRgb>({background, mid, mid, background}));
    Window vertical(new CSeparator(5, QFrame::VLine));
    QCOMPARE(vertical.colours({4, 5, 34, 35}), QVector<QRgb>({background, mid, mid, background}));
}

void tst_CSeparator::ownStyleSheet()
{
    auto* const line = new CSeparator(0, QFrame::VLine);
    line->setStyleSheet(QStringLiteral("background:rgba(57, 57, 64, 1);width: 1px;"));
    Window w(line);
    QCOMPARE(w.line->size(), QSize(1, 40));
    QCOMPARE(w.colours({0, 20, 39}), QVector<QRgb>(3, qRgb(57, 57, 64)));
    w.line->setStyleSheet(QString());
    QCOMPARE(w.colours({0, 20, 39}), QVector<QRgb>(3, w.line->palette().color(QPalette::Mid).rgb()));
}

void tst_CSeparator::applicationStyleSheet()
{
    Window w(new CSeparator);
    w.window.setStyleSheet(QStringLiteral("CSeparator{background:#0000ff;}"));
    QCOMPARE(w.colours({0, 30, 59}), QVector<QRgb>(3, qRgb(0, 0, 255)));
}

SETTINGAREA_TEST_MAIN(tst_CSeparator, QApplication)
#include "tst_CSeparator.moc"
