#include <widgetry/CCustomGroupBox.h>

#include <QLabel>
#include <QVBoxLayout>

CCustomGroupBox::CCustomGroupBox(const QString& title, QWidget* parent)
    : QFrame(parent),
      m_pTitle(new QLabel),
      m_pLayout(new QVBoxLayout(this))
{
    m_pTitle->setObjectName(QStringLiteral("GroupTitle"));
    m_pTitle->setTextFormat(Qt::PlainText);
    QFont font = m_pTitle->font();
    font.setBold(true);
    m_pTitle->setFont(font);
    m_pLayout->setContentsMargins(0, 0, 0, 0);
    m_pLayout->addWidget(m_pTitle);
    setTitle(title);
}

void CCustomGroupBox::setTitle(const QString& title)
{
    m_pTitle->setText(title);
    m_pTitle->setHidden(title.isEmpty());
    setAccessibleName(title);
}

QString CCustomGroupBox::title() const
{
    return m_pTitle->text();
}

void CCustomGroupBox::addCustomLayout(QLayout* layout)
{
    m_pLayout->addLayout(layout);
}
