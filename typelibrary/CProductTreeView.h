#pragma once

#include <widgetry/CTreeView.h>

class CProductTreeModel;

// The tree on the Type library tab. [GUI thread]
class CProductTreeView : public CTreeView
{
    Q_OBJECT

public:
    explicit CProductTreeView(QWidget* parent = nullptr);

    // Shows the library folder `path`; nothing when there is no such folder.
    void setRootPath(const QString& path);

    // Allows or forbids changes of the library.
    void setEditable(bool editable);

private:
    CProductTreeModel* const m_pModel;
};
