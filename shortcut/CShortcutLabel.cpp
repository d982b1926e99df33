#include "shortcut/CShortcutLabel.h"

#include "shortcut/KeyCaps.h"

#include <QHBoxLayout>
#include <QLabel>

namespace {

constexpr int capSpacing = 6; // pixels

QLabel* plainLabel(const QString& text, QWidget* parent)
{
    auto* const label = new QLabel(text, parent);
    label->setTextFormat(Qt::PlainText); // "<" is a key
    return label;
}

} // namespace

CShortcutLabel::CShortcutLabel(const QString& text, const QKeySequence& keys, QWidget* parent)
    : QWidget(parent),
      m_pName(plainLabel(text, this))
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(capSpacing);
    layout->addWidget(m_pName);
    layout->addStretch();
    const QStringList caps = keyCaps(keys);
    for (const QString& cap : caps) {
        QLabel* const label = plainLabel(cap, this);
        label->setObjectName(QStringLiteral("Shortcut"));
        layout->addWidget(label);
    }
}

void CShortcutLabel::setText(const QString& text)
{
    m_pName->setText(text);
}

QSize CShortcutLabel::sizeHint() const
{
    return {324, 24};
}
