#include "tests/support/StoreFixture.h"
#include "typelibrary/CProductNameDelegate.h"
#include "typelibrary/CProductTreeModel.h"

#include <widgetry/CToolTip.h>
#include <widgetry/CTreeView.h>

#include <QApplication>
#include <QDir>
#include <QHelpEvent>
#include <QLineEdit>
#include <QRegularExpressionValidator>
#include <QStandardItemModel>
#include <QToolTip>

namespace {

// A library in a tree, with the delegate in its first column.
class LibraryView
{
public:
    explicit LibraryView(const QString& library)
    {
        view.setModel(&model);
        view.setRootIndex(model.setRootPath(library));
        delegate = new CProductNameDelegate(&view);
        view.setItemDelegateForColumn(CProductTreeModel::NameColumn, delegate);
        view.resize(900, 300);
        view.show();
        view.setColumnWidth(CProductTreeModel::NameColumn, 511);
    }

    QModelIndex row(const QString& name) const { return model.index(model.rootPath() + QLatin1Char('/') + name); }
    QLineEdit* edit(const QString& name)
    {
        view.edit(row(name));
        return editor();
    }
    QLineEdit* editor() const { return view.viewport()->findChild<QLineEdit*>(); }

    CProductTreeModel model;
    CTreeView view;
    CProductNameDelegate* delegate;
};

} // namespace

class tst_CProductNameDelegate : public StoreFixture
{
    Q_OBJECT

private Q_SLOTS:
    void editorShowsTheBaseName();
    void validator_data();
    void validator();
    void forbiddenCharactersAreNotTyped();
    void geometry();
    void rename();
    void emptyNameStaysAsItWas_data();
    void emptyNameStaysAsItWas();
    void escapeKeepsTheName();
    void nameThatIsNotAcceptable();
    void toolTipOfNameWithoutRoom();
    void toolTipIsPlainText();
    void toolTipOfNameWithRoom();

private:
    QStringList names() const
    {
        return QDir(library->path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot, QDir::Name);
    }
};

void tst_CProductNameDelegate::editorShowsTheBaseName()
{
    write(QStringLiteral("Cab 1.rcvp"), "cab");
    makeFolder(QStringLiteral("G.1"));
    LibraryView shown(library->path());
    QTRY_VERIFY(shown.row(QStringLiteral("Cab 1.rcvp")).isValid());
    const QLineEdit* const file = shown.edit(QStringLiteral("Cab 1.rcvp"));
    QVERIFY(file);
    QCOMPARE(file->text(), QStringLiteral("Cab 1"));
    QCOMPARE(file->selectedText(), QStringLiteral("Cab 1"));
    QTest::keyClick(shown.editor(), Qt::Key_Escape);
    QTRY_VERIFY(!shown.editor());
    QVERIFY(shown.edit(QStringLiteral("G.1")));
    QCOMPARE(shown.editor()->text(), QStringLiteral("G.1"));
}

void tst_CProductNameDelegate::validator_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isAcceptable");
    for (const char forbidden : {'\\', '/', ':', '*', '?', '"', '<', '>', '|', '.'}) {
        const QByteArray label(1, forbidden);
        QTest::newRow(label.constData()) << QString(QLatin1Char(forbidden)) << false;
        QTest::newRow((label + " within").constData())
            << QStringLiteral("Cab%1 1").arg(QLatin1Char(forbidden)) << false;
    }
    QTest::newRow("empty") << QString() << true;
    QTest::newRow("64 characters") << QString(64, QLatin1Char('x')) << true;
    QTest::newRow("65 characters") << QString(65, QLatin1Char('x')) << false;
    QTest::newRow("64 Chinese characters") << QString(64, QChar(0x7bb1)) << true;
    QTest::newRow("65 Chinese characters") << QString(65, QChar(0x7bb1)) << false;
    QTest::newRow("all else") << QStringLiteral(" ~!@#$%^&()_+-={}[];',`") << true;
}

void tst_CProductNameDelegate::validator()
{
    QFETCH(QString, name);
    QFETCH(bool, isAcceptable);
    const CProductNameDelegate delegate;
    QWidget parent;
    const auto* const editor = qobject_cast<QLineEdit*>(delegate.createEditor(&parent, {}, {}));
    QVERIFY(editor);
    QCOMPARE(editor->parentWidget(), &parent);
    const auto* const validator = qobject_cast<const QRegularExpressionValidator*>(editor->validator());
    QVERIFY(validator);
    QCOMPARE(validator->regularExpression().pattern(), QStringLiteral("[^\\\\/:\\*\\?\"<>\\|\\.]{0,64}"));
    int cursor = 0;
    QCOMPARE(validator->validate(name, cursor), isAcceptable ? QValidator::Acceptable : QValidator::Invalid);
}

void tst_CProductNameDelegate::forbiddenCharactersAreNotTyped()
{
    write(QStringLiteral("Cab.rcvp"), "cab");
    LibraryView shown(library->path());
    QTRY_VERIFY(shown.row(QStringLiteral("Cab.rcvp")).isValid());
    QLineEdit* const editor = shown.edit(QStringLiteral("Cab.rcvp"));
    QVERIFY(editor);
    QTest::keyClicks(editor, QStringLiteral("a\\/:*?\"<>|.b"));
    QCOMPARE(editor->text(), QStringLiteral("ab"));
    QTest::keyClicks(editor, QString(70, QLatin1Char('x')));
    QCOMPARE(editor->text(), QStringLiteral("ab") + QString(62, QLatin1Char('x')));
}

void tst_CProductNameDelegate::geometry()
{
    write(QStringLiteral("Cab 1.rcvp"), "cab");
    LibraryView shown(library->path());
    QTRY_VERIFY(shown.row(QStringLiteral("Cab 1.rcvp")).isValid());
    const QModelIndex index = shown.row(QStringLiteral("Cab 1.rcvp"));
    QStyleOptionViewItem option;
    option.rect = QRect(20, 56, 511, 28);
    option.decorationSize = QSize(16, 16);
    option.fontMetrics = shown.view.fontMetrics();
    QLineEdit editor;
    shown.delegate->updateEditorGeometry(&editor, option, index);
    const int textWidth = shown.view.fontMetrics().horizontalAdvance(QStringLiteral("Cab 1.rcvp"));
    QCOMPARE(editor.geometry(), QRect(20 + 8 + 16, 56 + 4, textWidth + 10, 28 - 8));

    // An item without an icon.
    QStandardItemModel plain;
    plain.appendRow(new QStandardItem(QStringLiteral("Cab 1.rcvp")));
    option.decorationSize = QSize(0, 0);
    shown.delegate->updateEditorGeometry(&editor, option, plain.index(0, 0));
    QCOMPARE(editor.geometry(), QRect(28, 60, textWidth + 10, 20));

    const QLineEdit* const inTree = shown.edit(QStringLiteral("Cab 1.rcvp"));
    const QRect item = shown.view.visualRect(index);
    QCOMPARE(inTree->geometry(), QRect(item.left() + 8 + 16, item.top() + 4, textWidth + 10, item.height() - 8));
}

void tst_CProductNameDelegate::rename()
{
    write(QStringLiteral("Cab 1.rcvp"), "cab");
    LibraryView shown(library->path());
    QTRY_VERIFY(shown.row(QStringLiteral("Cab 1.rcvp")).isValid());
    QLineEdit* const editor = shown.edit(QStringLiteral("Cab 1.rcvp"));
    QTest::keyClicks(editor, QStringLiteral("Cab 2"));
    QTest::keyClick(editor, Qt::Key_Return);
    QTRY_COMPARE(names(), QStringList{QStringLiteral("Cab 2.rcvp")});
}

void tst_CProductNameDelegate::emptyNameStaysAsItWas_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("baseName");
    QTest::newRow("file") << QStringLiteral("Cab 1.rcvp") << QStringLiteral("Cab 1");
    QTest::newRow("file with a dot in its name") << QStringLiteral("P2.5.rcvp") << QStringLiteral("P2.5");
    QTest::newRow("group") << QStringLiteral("Group") << QStringLiteral("Group");
}

void tst_CProductNameDelegate::emptyNameStaysAsItWas()
{
    QFETCH(QString, name);
    QFETCH(QString, baseName);
    if (name.endsWith(QLatin1String(".rcvp")))
        write(name, "cab");
    else
        makeFolder(name);
    LibraryView shown(library->path());
    QTRY_VERIFY(shown.row(name).isValid());
    QLineEdit* const editor = shown.edit(name);
    editor->selectAll();
    QTest::keyClick(editor, Qt::Key_Delete);
    QCOMPARE(editor->text(), QString());
    shown.delegate->setModelData(editor, &shown.model, shown.row(name));
    QCOMPARE(editor->text(), baseName);
    QCOMPARE(names(), QStringList{name});

    editor->clear();
    QTest::keyClick(editor, Qt::Key_Return);
    QTRY_VERIFY(!shown.editor());
    QCOMPARE(QApplication::activeModalWidget(), nullptr);
    QCOMPARE(names(), QStringList{name});
}

void tst_CProductNameDelegate::escapeKeepsTheName()
{
    write(QStringLiteral("Cab 1.rcvp"), "cab");
    LibraryView shown(library->path());
    QTRY_VERIFY(shown.row(QStringLiteral("Cab 1.rcvp")).isValid());
    QLineEdit* const editor = shown.edit(QStringLiteral("Cab 1.rcvp"));
    QTest::keyClicks(editor, QStringLiteral("Cab 2"));
    QTest::keyClick(editor, Qt::Key_Escape);
    QTRY_VERIFY(!shown.editor());
    QCOMPARE(names(), QStringList{QStringLiteral("Cab 1.rcvp")});
}

// Names that were given elsewhere may have dots, and most do: they name the pixel pitch.
void tst_CProductNameDelegate::nameThatIsNotAcceptable()
{
    const QString name = QStringLiteral("P2.5.rcvp");
    write(name, "cab");
    LibraryView shown(library->path());
    QTRY_VERIFY(shown.row(name).isValid());
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Tab, Qt::Key_Backtab}) {
        QLineEdit* const untouched = shown.edit(name);
        QCOMPARE(untouched->text(), QStringLiteral("P2.5"));
        QTest::keyClick(untouched, key);
        QTRY_VERIFY(!shown.editor());
    }
    // One that is changed must be changed to an acceptable name.
    QLineEdit* const editor = shown.edit(name);
    QTest::keyClick(editor, Qt::Key_End);
    QTest::keyClick(editor, Qt::Key_X);
    QCOMPARE(editor->text(), QStringLiteral("P2.5x"));
    QTest::keyClick(editor, Qt::Key_Return);
    QCoreApplication::processEvents();
    QCOMPARE(shown.editor(), editor);
    editor->setCursorPosition(3);
    QTest::keyClick(editor, Qt::Key_Backspace);
    QTest::keyClick(editor, Qt::Key_Return);
    QTRY_COMPARE(names(), QStringList{QStringLiteral("P25x.rcvp")});
}

namespace {

// What the delegate shows when a tooltip of the item is asked for, and whether it has handled that.
QString toolTip(CProductNameDelegate& delegate, CTreeView& view, const QModelIndex& index, int width, bool* isHandled)
{
    QToolTip::hideText();
    QHelpEvent event(QEvent::ToolTip, QPoint(5, 5), view.viewport()->mapToGlobal(QPoint(5, 5)));
    QStyleOptionViewItem option;
    option.rect = QRect(0, 0, width, 28);
    option.fontMetrics = view.fontMetrics();
    *isHandled = delegate.helpEvent(&event, &view, option, index);
    return QToolTip::text();
}

} // namespace

void tst_CProductNameDelegate::toolTipOfNameWithoutRoom()
{
    const QString name = QStringLiteral("A rather long name.rcvp");
    write(name, "cab");
    LibraryView shown(library->path());
    QTRY_VERIFY(shown.row(name).isValid());
    const int textWidth = shown.view.fontMetrics().horizontalAdvance(name);
    bool isHandled = false;
    QCOMPARE(toolTip(*shown.delegate, shown.view, shown.row(name), textWidth - 1, &isHandled),
             CToolTip::fromPlainText(name));
    QVERIFY(isHandled);
    toolTip(*shown.delegate, shown.view, shown.row(name), textWidth, &isHandled);
    QVERIFY(!isHandled);
    QTRY_VERIFY(!QToolTip::isVisible());

    // In the tree, as the mouse asks for it.
    shown.view.setColumnWidth(CProductTreeModel::NameColumn, 60);
    const QPoint position = shown.view.visualRect(shown.row(name)).center();
    QHelpEvent event(QEvent::ToolTip, position, shown.view.viewport()->mapToGlobal(position));
    QVERIFY(QCoreApplication::sendEvent(shown.view.viewport(), &event));
    QCOMPARE(QToolTip::text(), CToolTip::fromPlainText(name));
    QToolTip::hideText();
}

void tst_CProductNameDelegate::toolTipIsPlainText()
{
    const QString name = QStringLiteral("<h1>Cab.rcvp");
    write(name, "cab");
    LibraryView shown(library->path());
    QTRY_VERIFY(shown.row(name).isValid());
    bool isHandled = false;
    const QString shownText = toolTip(*shown.delegate, shown.view, shown.row(name), 20, &isHandled);
    QVERIFY(shownText.contains(QStringLiteral("&lt;h1&gt;Cab.rcvp")));
    QToolTip::hideText();
}

void tst_CProductNameDelegate::toolTipOfNameWithRoom()
{
    QStandardItemModel plain;
    plain.appendRow(new QStandardItem(QStringLiteral("x")));
    plain.item(0)->setToolTip(QStringLiteral("from the model"));
    CTreeView view;
    view.setModel(&plain);
    view.show();
    CProductNameDelegate delegate;
    bool isHandled = false;
    QCOMPARE(toolTip(delegate, view, plain.index(0, 0), 200, &isHandled), QStringLiteral("from the model"));
    QVERIFY(isHandled);
    QToolTip::hideText();
}

SETTINGAREA_TEST_MAIN(tst_CProductNameDelegate, QApplication)

#include "tst_CProductNameDelegate.moc"
