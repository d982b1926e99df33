#include "multircv/CMultiRcvCabinetSetThirdPage.h"

#include <widgetry/CDoubleSpinBox.h>

#include <QEvent>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpressionValidator>

#include <algorithm>
#include <cmath>

namespace {

constexpr int fieldWidth = 313; // pixels, at most
constexpr int longestName = 64;
constexpr double greatest = 9999999999.0;

enum Row
{
    TypeNameRow,
    WeightRow,
    PowerRow,
    VoltageRow,
    RowCount,
};

// What may stand in the name of a new type.
QString namePattern()
{
    return QStringLiteral(R"([^，?#@$%!！&*:：()|"<>\\ 。；;.、？《》‘//]*)");
}

// The same for an edited type, whose own name may come from elsewhere.
QString namePattern(const QString& ownName)
{
    const QRegularExpression any(QRegularExpression::anchoredPattern(namePattern()));
    return any.match(ownName).hasMatch() ? namePattern()
                                         : namePattern() + QLatin1Char('|') + QRegularExpression::escape(ownName);
}

} // namespace

CMultiRcvCabinetSetThirdPage::CMultiRcvCabinetSetThirdPage(const SHwRcvInCabinetInfo& record, const QString& typeName,
                                                           QWidget* parent)
    : QWidget(parent)
{
    createWidgets(typeName);
    addBox(Weight, record.weight);
    addBox(Power, record.power);
    addBox(VoltageMin, record.voltageMin);
    addBox(VoltageMax, record.voltageMax);
    layoutWidgets();
    setTexts();
}

QString CMultiRcvCabinetSetThirdPage::typeName() const
{
    return m_pTypeName->text();
}

double CMultiRcvCabinetSetThirdPage::value(Value value) const
{
    const Box box = m_boxes.value(value);
    const double entered = box.pBox->value();
    return entered == box.shown ? box.stored : entered;
}

void CMultiRcvCabinetSetThirdPage::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        setTexts();
    QWidget::changeEvent(event);
}

void CMultiRcvCabinetSetThirdPage::createWidgets(const QString& typeName)
{
    m_pTypeName = new QLineEdit(this);
    m_pTypeName->setObjectName(QStringLiteral("MultiRcvCabinet"));
    m_pTypeName->setMaxLength(std::max(longestName, typeName.size())); // a name that was cut would be a new one
    m_pTypeName->setValidator(new QRegularExpressionValidator(QRegularExpression(namePattern(typeName)), m_pTypeName));
    m_pTypeName->setText(typeName);
    for (int row = 0; row < RowCount; ++row)
        m_labels[row] = new QLabel(this);
}

void CMultiRcvCabinetSetThirdPage::addBox(Value value, float stored)
{
    Box& box = m_boxes[value];
    box.pBox = new CDoubleSpinBox(this);
    box.pBox->setDecimals(2);
    box.pBox->setRange(0, greatest);
    // A damaged record may hold anything. The greatest value is stored as the float above it.
    box.stored = std::isfinite(stored) && stored >= 0 && stored <= static_cast<float>(greatest) ? stored : 0;
    box.pBox->setValue(box.stored);
    box.shown = box.pBox->value();
}

void CMultiRcvCabinetSetThirdPage::layoutWidgets()
{
    auto* const voltage = new QFrame(this); // the wizard's style draws a border around each plain QWidget
    auto* const limits = new QHBoxLayout(voltage);
    limits->setContentsMargins(0, 0, 0, 0);
    limits->setSpacing(8);
    limits->addWidget(m_boxes[VoltageMin].pBox, 1);
    limits->addWidget(new QLabel(QStringLiteral("\u2013"), voltage));
    limits->addWidget(m_boxes[VoltageMax].pBox, 1);

    const QWidgetList fields{m_pTypeName, m_boxes[Weight].pBox, m_boxes[Power].pBox, voltage};
    for (QWidget* const field : fields) {
        field->setMaximumWidth(fieldWidth);
        field->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    }

    auto* const layout = new QGridLayout(this);
    layout->setContentsMargins(16, 16, 16, 16);
    layout->setVerticalSpacing(12);
    layout->setHorizontalSpacing(12);
    for (int row = 0; row < RowCount; ++row)
        layout->addWidget(m_labels[row], row, 0);
    layout->addWidget(m_pTypeName, TypeNameRow, 1);
    layout->addWidget(m_boxes[Weight].pBox, WeightRow, 1);
    layout->addWidget(m_boxes[Power].pBox, PowerRow, 1);
    layout->addWidget(voltage, VoltageRow, 1);
    layout->setColumnStretch(1, fieldWidth); // what is left beside large texts, as far as the fields take it
    layout->setColumnStretch(2, 1);
    layout->setRowStretch(RowCount, 1);

    m_labels[TypeNameRow]->setBuddy(m_pTypeName);
    m_labels[WeightRow]->setBuddy(m_boxes[Weight].pBox);
    m_labels[PowerRow]->setBuddy(m_boxes[Power].pBox);
    m_labels[VoltageRow]->setBuddy(m_boxes[VoltageMin].pBox);
}

void CMultiRcvCabinetSetThirdPage::setTexts()
{
    m_labels[TypeNameRow]->setText(tr("Type name"));
    m_labels[WeightRow]->setText(tr("Weight(Kg)"));
    m_labels[PowerRow]->setText(tr("Power(W)"));
    m_labels[VoltageRow]->setText(tr("Working voltage(V)"));
    m_pTypeName->setAccessibleName(m_labels[TypeNameRow]->text());
    m_boxes[Weight].pBox->setAccessibleName(m_labels[WeightRow]->text());
    m_boxes[Power].pBox->setAccessibleName(m_labels[PowerRow]->text());
    m_boxes[VoltageMin].pBox->setAccessibleName(tr("Lower limit of the working voltage(V)"));
    m_boxes[VoltageMax].pBox->setAccessibleName(tr("Upper limit of the working voltage(V)"));
}
