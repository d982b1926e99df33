#include "shortcut/CShortCutTabBar.h"
#include "tests/shortcut/PanelRows.h"
#include "tests/support/TestObject.h"
#include "tests/support/UpperCase.h"

#include <QApplication>
#include <QIcon>
#include <QImage>
#include <QToolButton>

class tst_CShortcutPanel : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void frame();
    void header();
    void headerLineIsOpenUnderTheCurrentTab_data();
    void headerLineIsOpenUnderTheCurrentTab();
    void closeButton();
    void pageLayout();
    void gridKeepsItsSizeWhenThereIsRoom();
    void tabsSwitchThePages();
    void noRowsBeforeTheShortcuts();
    void defaultShortcuts();
    void shortcutsTwice();
    void oddMaps();
    void languageChange();
    void narrowPanelCutsNothing_data();
    void narrowPanelCutsNothing();

private:
    void setDefaults() const;
    QTabBar* tabBar() const { return m_panel->findChild<QTabBar*>(); }
    QToolButton* closeButtonOf() const { return m_panel->findChild<QToolButton*>(); }
    void showAt(int width);

    std::unique_ptr<QWidget> m_overlay;
    CShortcutPanel* m_panel = nullptr;
};

namespace {

QStringList layoutRows()
{
    return {
        QStringLiteral("Select all cabinets: Ctrl A"),
        QStringLiteral("Copy: Ctrl C"),
        QStringLiteral("Paste: Ctrl V"),
        QStringLiteral("Cut: Ctrl X"),
        QStringLiteral("Delete cabinet: Del"),
        QString::fromUtf8("Move cabinet(↑): Up"),
        QString::fromUtf8("Move cabinet(↓): Down"),
        QString::fromUtf8("Move cabinet(←): Left"),
        QString::fromUtf8("Move cabinet(→): Right"),
        QStringLiteral("Exit add cabinet: Esc"),
    };
}

QStringList softEdgeRows()
{
    return {
        QStringLiteral("Adjust coef(+1%): +"),      QStringLiteral("Adjust coef(-1%): -"),
        QStringLiteral("Adjust coef(+0.4%): A"),    QStringLiteral("Adjust coef(-0.4%): D"),
        QStringLiteral("Brightness(+): Page up"),   QString::fromUtf8("Switch seam(↑): Up"),
        QString::fromUtf8("Switch seam(↓): Down"),  QString::fromUtf8("Switch seam(←): Left"),
        QString::fromUtf8("Switch seam(→): Right"), QStringLiteral("Brightness(-): Page down"),
    };
}

// The names of the rows in capitals, the keys as they are.
QStringList withCapitalNames(QStringList rows)
{
    for (QString& row : rows) {
        const int end = row.indexOf(QLatin1Char(':'));
        row = row.left(end).toUpper() + row.mid(end);
    }
    return rows;
}

QStringList withoutKeys(QStringList rows)
{
    for (QString& row : rows)
        row.truncate(row.indexOf(QLatin1Char(':')) + 1);
    return rows;
}

} // namespace

void tst_CShortcutPanel::init()
{
    TestObject::init();
    m_overlay = std::make_unique<QWidget>();
    m_panel = new CShortcutPanel(m_overlay.get());
}

void tst_CShortcutPanel::cleanup()
{
    m_overlay.reset();
    TestObject::cleanup();
}

void tst_CShortcutPanel::setDefaults() const
{
    const SSettings defaults;
    m_panel->setShortcuts(defaults.layoutShortcuts, defaults.softEdgeShortcuts);
}

// Shows the panel at the size that an overlay of that width gives it.
void tst_CShortcutPanel::showAt(int width)
{
    m_overlay->resize(width, 245);
    m_panel->setGeometry(0, 0, width, 245);
    m_panel->show();
    m_overlay->show();
}

void tst_CShortcutPanel::frame()
{
    QCOMPARE(m_panel->objectName(), QStringLiteral("ShortcutPanel"));
    QCOMPARE(m_panel->styleSheet(), QStringLiteral("#ShortcutPanel{background:rgb(41,41,45);}"));
    QCOMPARE(m_panel->sizeHint(), QSize(1600, 245));
    QCOMPARE(m_panel->sizePolicy().horizontalPolicy(), QSizePolicy::Preferred);
    QCOMPARE(m_panel->sizePolicy().verticalPolicy(), QSizePolicy::Fixed);
    QVERIFY(!m_panel->testAttribute(Qt::WA_TransparentForMouseEvents));
    QVERIFY(m_panel->isHidden());
    QCOMPARE(m_panel->accessibleName(), QStringLiteral("Keyboard shortcuts"));
    const auto* const layout = qobject_cast<QVBoxLayout*>(m_panel->layout());
    QVERIFY(layout);
    QCOMPARE(layout->contentsMargins(), QMargins());
    QCOMPARE(layout->spacing(), 0);
    QCOMPARE(layout->count(), 2);
    QCOMPARE(layout->itemAt(0)->widget(), tabBar()->parentWidget());
    QCOMPARE(layout->itemAt(1)->layout(), pagesOf(*m_panel));

    showAt(1600);
    QCOMPARE(m_panel->grab().toImage().pixelColor(5, 200), QColor(41, 41, 45));
}

void tst_CShortcutPanel::header()
{
    QWidget* const header = tabBar()->parentWidget();
    QCOMPARE(header->styleSheet(), QStringLiteral(".QWidget{border-bottom:1px solid rgba(115,115,128, 40%);}"));
    const auto* const layout = qobject_cast<QHBoxLayout*>(header->layout());
    QVERIFY(layout);
    QCOMPARE(layout->contentsMargins(), QMargins());
    QCOMPARE(layout->spacing(), 0);
    QCOMPARE(layout->count(), 4);
    QVERIFY(layout->itemAt(0)->spacerItem());
    QCOMPARE(layout->stretch(0), 12);
    QCOMPARE(layout->itemAt(1)->widget(), tabBar());
    QVERIFY(layout->itemAt(2)->spacerItem());
    QCOMPARE(layout->stretch(2), 9);
    QCOMPARE(layout->itemAt(3)->widget(), closeButtonOf());

    showAt(1600);
    QCOMPARE(header->geometry(), QRect(0, 0, 1600, 37));
    QCOMPARE(tabBar()->height(), 37);
    QCOMPARE(tabBar()->width(), tabBar()->sizeHint().width());
    const int space = 1600 - tabBar()->width() - closeButtonOf()->width();
    QVERIFY(std::abs(tabBar()->x() - space * 12 / 21) <= 1);
    QCOMPARE(closeButtonOf()->geometry().right(), 1599);
}

void tst_CShortcutPanel::headerLineIsOpenUnderTheCurrentTab_data()
{
    QTest::addColumn<int>("tab");
    QTest::newRow("Layout") << 0;
    QTest::newRow("Soft edge") << 1;
}

void tst_CShortcutPanel::headerLineIsOpenUnderTheCurrentTab()
{
    QFETCH(int, tab);
    tabBar()->setStyleSheet(QStringLiteral("QTabBar::tab{border:none;}"));
    tabBar()->setCurrentIndex(tab);
    showAt(1600);
    const QImage picture = m_panel->grab().toImage();
    const QRect current = tabBar()->tabRect(tab).translated(tabBar()->pos());
    const QColor line = picture.pixelColor(0, 36);
    QVERIFY(line != QColor(41, 41, 45));
    for (int x = 0; x < 1600; ++x) {
        const QColor pixel = picture.pixelColor(x, 36);
        if (x < current.left() - 1 || x > current.right() + 4)
            QVERIFY2(std::abs(pixel.blue() - line.blue()) <= 1, qPrintable(QString::number(x)));
        else if (x > current.left() + 3 && x < current.right() - 1)
            QVERIFY2(pixel == QColor(41, 41, 45), qPrintable(QString::number(x)));
    }
}

void tst_CShortcutPanel::closeButton()
{
    const QToolButton* const button = closeButtonOf();
    QCOMPARE(button->toolTip(), QStringLiteral("Close"));
    QCOMPARE(button->accessibleName(), QStringLiteral("Close"));
    QVERIFY(button->focusPolicy() & Qt::TabFocus);
    QVERIFY(tabBar()->focusPolicy() & Qt::TabFocus);
    QCOMPARE(button->iconSize(), QSize(16, 16));
    const auto ink = [button](QIcon::Mode mode) {
        return button->icon().pixmap(QSize(16, 16), mode).toImage().pixelColor(8, 8);
    };
    QCOMPARE(ink(QIcon::Normal), QColor(0xb5, 0xb5, 0xc1));
    QCOMPARE(ink(QIcon::Active), QColor(0xf0, 0xf0, 0xf6));
}

void tst_CShortcutPanel::pageLayout()
{
    setDefaults();
    QCOMPARE(pagesOf(*m_panel)->count(), 2);
    for (int page = 0; page < 2; ++page) {
        const auto* const layout = qobject_cast<QHBoxLayout*>(pagesOf(*m_panel)->widget(page)->layout());
        QVERIFY(layout);
        QCOMPARE(layout->contentsMargins(), QMargins());
        QCOMPARE(layout->count(), 2);
        QVERIFY(layout->itemAt(0)->spacerItem());
        const QGridLayout* const grid = gridOf(*m_panel, page);
        QCOMPARE(layout->itemAt(1)->layout(), grid);
        QCOMPARE(grid->contentsMargins(), QMargins());
        QCOMPARE(grid->sizeConstraint(), QLayout::SetFixedSize);
        QCOMPARE(grid->alignment(), Qt::AlignLeft | Qt::AlignTop);
        QCOMPARE(grid->horizontalSpacing(), 120);
        QCOMPARE(grid->verticalSpacing(), 12);
        QCOMPARE(grid->count(), 10);
    }
}

void tst_CShortcutPanel::gridKeepsItsSizeWhenThereIsRoom()
{
    setDefaults();
    for (const int width : {768, 1024, 1600, 2560}) {
        showAt(width);
        for (int page = 0; page < 2; ++page) {
            tabBar()->setCurrentIndex(page);
            QCoreApplication::processEvents();
            const QGridLayout* const grid = gridOf(*m_panel, page);
            const QRect first = grid->itemAtPosition(0, 0)->geometry();
            QCOMPARE(first.size(), QSize(324, 24));
            QCOMPARE(first.top(), 0);
            QVERIFY(first.left() >= 0);
            QCOMPARE(grid->itemAtPosition(4, 1)->geometry(), QRect(first.left() + 444, 144, 324, 24));
            QVERIFY(grid->itemAtPosition(4, 1)->geometry().right() < width);
        }
    }
}

void tst_CShortcutPanel::tabsSwitchThePages()
{
    QCOMPARE(tabBar()->objectName(), QStringLiteral("ShortCut"));
    QVERIFY(qobject_cast<CShortCutTabBar*>(tabBar()));
    QCOMPARE(tabBar()->count(), 2);
    QCOMPARE(tabBar()->tabText(0), QStringLiteral("Layout"));
    QCOMPARE(tabBar()->tabText(1), QStringLiteral("Soft edge"));
    QCOMPARE(tabBar()->currentIndex(), 0);
    QCOMPARE(pagesOf(*m_panel)->currentIndex(), 0);
    showAt(1024);
    QTest::mouseClick(tabBar(), Qt::LeftButton, {}, tabBar()->tabRect(1).center());
    QCOMPARE(pagesOf(*m_panel)->currentIndex(), 1);
    QVERIFY(pagesOf(*m_panel)->widget(1)->isVisible());
    QVERIFY(!pagesOf(*m_panel)->widget(0)->isVisible());
    QTest::keyClick(tabBar(), Qt::Key_Left);
    QCOMPARE(pagesOf(*m_panel)->currentIndex(), 0);
}

void tst_CShortcutPanel::noRowsBeforeTheShortcuts()
{
    QVERIFY(m_panel->findChildren<CShortcutLabel*>().isEmpty());
    const UpperCase language; // nothing to retranslate but the tabs
    QCOMPARE(tabBar()->tabText(0), QStringLiteral("LAYOUT"));
}

void tst_CShortcutPanel::defaultShortcuts()
{
    setDefaults();
    QCOMPARE(rowsOf(*m_panel, 0), layoutRows());
    QCOMPARE(rowsOf(*m_panel, 1), softEdgeRows());
}

void tst_CShortcutPanel::shortcutsTwice()
{
    setDefaults();
    tabBar()->setCurrentIndex(1);
    showAt(1024);
    SSettings changed;
    changed.layoutShortcuts[1] = QKeySequence(Qt::Key_Insert, Qt::CTRL);
    changed.softEdgeShortcuts[8] = QKeySequence(Qt::Key_B);
    m_panel->setShortcuts(changed.layoutShortcuts, changed.softEdgeShortcuts);
    QStringList layout = layoutRows();
    layout[1] = QStringLiteral("Copy: Ctrl Ins");
    QStringList softEdge = softEdgeRows();
    softEdge[4] = QStringLiteral("Brightness(+): B");
    QCOMPARE(rowsOf(*m_panel, 0), layout);
    QCOMPARE(rowsOf(*m_panel, 1), softEdge);
    for (int page = 0; page < 2; ++page) {
        QCOMPARE(pagesOf(*m_panel)->widget(page)->findChildren<CShortcutLabel*>().size(), 10);
        QCOMPARE(gridOf(*m_panel, page)->count(), 10);
    }
    // What is shown stays shown, with the new keys.
    QCOMPARE(tabBar()->currentIndex(), 1);
    const auto rows = pagesOf(*m_panel)->widget(1)->findChildren<CShortcutLabel*>();
    for (const CShortcutLabel* row : rows)
        QTRY_VERIFY(row->isVisible());
}

void tst_CShortcutPanel::oddMaps()
{
    SSettings::ShortcutMap layout{{-1, QKeySequence(Qt::Key_F1)},
                                  {1, QKeySequence()},
                                  {4, QKeySequence(Qt::Key_1, Qt::Key_2, Qt::Key_3, Qt::Key_4)},
                                  {10, QKeySequence(Qt::Key_F2)},
                                  {100000, QKeySequence(Qt::Key_F3)}};
    m_panel->setShortcuts(layout, {});
    QStringList expected = withoutKeys(layoutRows());
    expected[4] = QStringLiteral("Delete cabinet: 4 3 2 1");
    QCOMPARE(rowsOf(*m_panel, 0), expected);
    QCOMPARE(rowsOf(*m_panel, 1), withoutKeys(softEdgeRows()));
    QCOMPARE(m_panel->findChildren<CShortcutLabel*>().size(), 20);

    // Keys that are gone from the map are gone from the row.
    setDefaults();
    m_panel->setShortcuts({}, {});
    QVERIFY(!m_panel->findChild<QLabel*>(QStringLiteral("Shortcut")));
    setDefaults();
    QCOMPARE(rowsOf(*m_panel, 0), layoutRows());
}

void tst_CShortcutPanel::languageChange()
{
    setDefaults();
    {
        const UpperCase language;
        QCOMPARE(tabBar()->tabText(0), QStringLiteral("LAYOUT"));
        QCOMPARE(tabBar()->tabText(1), QStringLiteral("SOFT EDGE"));
        QCOMPARE(rowsOf(*m_panel, 0), withCapitalNames(layoutRows()));
        QCOMPARE(rowsOf(*m_panel, 1), withCapitalNames(softEdgeRows()));
        QCOMPARE(closeButtonOf()->toolTip(), QStringLiteral("CLOSE"));
        QCOMPARE(closeButtonOf()->accessibleName(), QStringLiteral("CLOSE"));
        QCOMPARE(m_panel->accessibleName(), QStringLiteral("KEYBOARD SHORTCUTS"));
        m_panel->setShortcuts({}, SSettings().softEdgeShortcuts); // rows that are made in this language
        QCOMPARE(rowsOf(*m_panel, 0).at(1), QStringLiteral("COPY:"));
        QCOMPARE(rowsOf(*m_panel, 1), withCapitalNames(softEdgeRows()));
    }
    QCOMPARE(rowsOf(*m_panel, 0).at(1), QStringLiteral("Copy:"));
    QCOMPARE(rowsOf(*m_panel, 1), softEdgeRows());
    QCOMPARE(tabBar()->tabText(1), QStringLiteral("Soft edge"));
}

void tst_CShortcutPanel::narrowPanelCutsNothing_data()
{
    QTest::addColumn<int>("width");
    QTest::newRow("as wide as the rows") << 768;
    QTest::newRow("narrower") << 740;
    QTest::newRow("much narrower") << 640;
}

void tst_CShortcutPanel::narrowPanelCutsNothing()
{
    QFETCH(int, width);
    setDefaults();
    for (int page = 0; page < 2; ++page) {
        tabBar()->setCurrentIndex(page);
        showAt(width);
        QCoreApplication::processEvents();
        QCOMPARE(m_panel->width(), width);
        const auto labels = pagesOf(*m_panel)->widget(page)->findChildren<QLabel*>();
        QVERIFY(labels.size() >= 20);
        for (const QLabel* label : labels) {
            QVERIFY2(label->width() >= label->sizeHint().width(), qPrintable(label->text()));
            QVERIFY(label->mapTo(m_panel, label->rect().bottomRight()).x() < width);
        }
        QVERIFY(m_panel->rect().contains(closeButtonOf()->geometry()));
    }
}

SETTINGAREA_TEST_MAIN(tst_CShortcutPanel, QApplication)
#include "tst_CShortcutPanel.moc"
