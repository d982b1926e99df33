#pragma once

#include <QWidget>

class CProductTreeView;

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

private:
    CProductTreeView* const m_pView;
};
