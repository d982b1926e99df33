#pragma once

#include <QWidget>

class CProductTreeView;
class QToolButton;

// The "Type library" page. [GUI thread]
class CTypeLibrarySetting : public QWidget
{
    Q_OBJECT

public:
    explicit CTypeLibrarySetting(QWidget* parent = nullptr);

    // Shows the library folder; called by name from the thread that has scanned it.
    Q_INVOKABLE void setData(const QString& rootPath);

    // Allows or forbids changes of the library.
    void setEditable(bool editable);

protected:
    void changeEvent(QEvent* event) override;

private:
    void setTexts();
    void createMultiRcvCabinet();

    CProductTreeView* const m_pView;
    QToolButton* const m_pMultiRcvCabinet;
};
