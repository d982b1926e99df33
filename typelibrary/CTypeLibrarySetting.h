#pragma once

#include <QMap>
#include <QWidget>

class CProductTreeView;
class QToolButton;

// The "Type library" page: a row of tool buttons above the tree of types. [GUI thread]
class CTypeLibrarySetting : public QWidget
{
    Q_OBJECT

public:
    explicit CTypeLibrarySetting(QWidget* parent = nullptr);

    // Allows or forbids changes of the library.
    void setEditable(bool editable);

public Q_SLOTS:
    // Shows the library folder; called by name from the thread that has scanned it.
    void setData(const QString& rootPath);

protected:
    void changeEvent(QEvent* event) override;

private:
    void createButtons();
    void layOut();
    void setTexts();
    static QString buttonText(int button);

    // What the button with this number does; nothing for other numbers. Destroying the page meanwhile is safe.
    void runOperation(int button);
    void createMultiRcvCabinet();
    void clearAll();
    void updateClearAll();

    QMap<int, QToolButton*> m_buttons; // by number
    CProductTreeView* m_pView = nullptr;
    bool m_bDisabled = false; // changes are forbidden
};
