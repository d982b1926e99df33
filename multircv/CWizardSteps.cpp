#include "multircv/CWizardSteps.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QSvgWidget>
#include <QVBoxLayout>

namespace {

constexpr int iconSize = 32; // pixels
constexpr int lineHeight = 8;
constexpr int shortestLine = 12;

constexpr const char* keys[] = {"first", "second", "third"};

QString iconOf(const QString& name)
{
    return QStringLiteral(":/Image/SettingArea/TypeLibrary/MultiCardWizard/%1.svg").arg(name);
}

} // namespace

CWizardSteps::CWizardSteps(QWidget* parent)
    : QWidget(parent)
{
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);
    for (int step = 0; step < static_cast<int>(std::size(keys)); ++step)
        addStep(step);
    setTexts();
    setCurrentStep(0);
}

void CWizardSteps::setCurrentStep(int step)
{
    for (auto it = m_icons.cbegin(); it != m_icons.cend(); ++it) {
        const bool current = it.key() == step;
        const auto key = QString::fromLatin1(keys[it.key()]);
        it.value()->load(iconOf(key + (current ? QLatin1String("_active") : QLatin1String("_normal"))));
        m_captions[it.key()]->setStyleSheet(current ? QStringLiteral("color:#B5B5C1")
                                                    : QStringLiteral("color:rgb(115,115,128)"));
        m_texts[it.key()]->setStyleSheet(current ? QStringLiteral("color:#8C8AFF")
                                                 : QStringLiteral("color:rgb(240,240,246)"));
    }
}

void CWizardSteps::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        setTexts();
    QWidget::changeEvent(event);
}

void CWizardSteps::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    wrapTexts(m_unwrappedWidth > width());
}

void CWizardSteps::addStep(int step)
{
    auto* const layout = static_cast<QHBoxLayout*>(this->layout());
    if (step > 0) {
        auto* const line = new QSvgWidget(iconOf(QStringLiteral("step2stepline")), this);
        line->setFixedHeight(lineHeight);
        line->setMinimumWidth(shortestLine);
        line->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        layout->addWidget(line, 1);
    }
    m_icons[step] = new QSvgWidget(this);
    m_icons[step]->setFixedSize(iconSize, iconSize);
    m_captions[step] = new QLabel(this);
    m_texts[step] = new QLabel(this);
    auto* const words = new QVBoxLayout;
    words->setSpacing(0);
    words->addWidget(m_captions[step]);
    words->addWidget(m_texts[step]);
    layout->addWidget(m_icons[step]);
    layout->addLayout(words);
}

void CWizardSteps::setTexts()
{
    m_captions[0]->setText(tr("Step 1"));
    m_captions[1]->setText(tr("Step 2"));
    m_captions[2]->setText(tr("Step 3"));
    m_texts[0]->setText(tr("Receiver information"));
    m_texts[1]->setText(tr("Topology selection"));
    m_texts[2]->setText(tr("Cabinet label"));
    wrapTexts(false);
    m_unwrappedWidth = layout()->minimumSize().width();
    wrapTexts(m_unwrappedWidth > width());
}

void CWizardSteps::wrapTexts(bool wrap)
{
    for (QLabel* text : qAsConst(m_texts)) {
        if (text->wordWrap() != wrap)
            text->setWordWrap(wrap);
    }
}
