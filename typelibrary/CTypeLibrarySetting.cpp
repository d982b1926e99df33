#include "typelibrary/CTypeLibrarySetting.h"

#include "typelibrary/CProductTreeView.h"

#include <QVBoxLayout>

CTypeLibrarySetting::CTypeLibrarySetting(QWidget* parent)
    : QWidget(parent),
      m_pView(new CProductTreeView(this))
{
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_pView);
}

void CTypeLibrarySetting::setData(const QString& rootPath)
{
    m_pView->setRootPath(rootPath);
}

void CTypeLibrarySetting::setEditable(bool editable)
{
    m_pView->setEditable(editable);
}
