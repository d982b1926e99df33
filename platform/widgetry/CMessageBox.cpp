#include <widgetry/CMessageBox.h>

#include <QAccessible>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QTextEdit>

#include <algorithm>
#include <cmath>
#include <memory>

namespace {

constexpr CDialog::Button knownButtons[] = {CDialog::Yes, CDialog::No, CDialog::Ok, CDialog::Cancel};

// The text's share of the screen, beyond which it scrolls.
constexpr double largestShare = 0.6;
// Width of the text in average characters: short texts do not make a sliver, long ones keep readable lines.
constexpr int narrowest = 30;
constexpr int widest = 80;

int resultOf(CDialog::Button button)
{
    switch (button) {
    case CDialog::Yes:
        return CMessageBox::YesResult;
    case CDialog::No:
        return CMessageBox::NoResult;
    case CDialog::Cancel:
        return CMessageBox::CancelResult;
    default:
        return CMessageBox::OkResult;
    }
}

int resultOfClosing(CDialog::Buttons buttons)
{
    if (buttons & CDialog::Cancel)
        return CMessageBox::CancelResult;
    if (buttons & CDialog::No)
        return CMessageBox::NoResult;
    return CMessageBox::OkResult;
}

} // namespace

CMessageBox::CMessageBox(QWidget* parent, QStyle::StandardPixmap icon, const QString& text, Buttons buttons,
                         Button defaultButton)
    : CDialog(parent),
      m_pText(new QTextEdit),
      m_nResult(resultOfClosing(buttons))
{
    auto* const iconLabel = new QLabel;
    iconLabel->setObjectName(QStringLiteral("MessageIcon"));
    const int size = style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, this);
    // With Qt::AA_UseHighDpiPixmaps the pixmap is larger than asked for; a style with small icons only gives less.
    QPixmap pixmap = style()->standardIcon(icon, nullptr, this).pixmap(QSize(size, size) * devicePixelRatioF());
    pixmap.setDevicePixelRatio(std::max(1.0, static_cast<qreal>(pixmap.width()) / size));
    iconLabel->setPixmap(pixmap);

    m_pText->setObjectName(QStringLiteral("MessageText"));
    m_pText->setReadOnly(true);
    m_pText->setFrameShape(QFrame::NoFrame);
    m_pText->viewport()->setAutoFillBackground(false);
    m_pText->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    m_pText->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_pText->document()->setDocumentMargin(0);
    m_pText->setPlainText(text);
    setAccessibleDescription(text);

    auto* const layout = new QHBoxLayout(contentWidget());
    layout->addWidget(iconLabel, 0, Qt::AlignTop);
    layout->addWidget(m_pText, 1, Qt::AlignVCenter);

    QPushButton* preferred = nullptr;
    for (const Button known : knownButtons) {
        if (!(buttons & known))
            continue;
        QPushButton* const push = addButton(known);
        disconnect(push, &QPushButton::clicked, this, nullptr);
        connect(push, &QPushButton::clicked, this, [this, known] {
            m_nResult = resultOf(known);
            done(m_nResult);
        });
        if (!preferred || known == defaultButton)
            preferred = push;
    }
    preferred->setDefault(true);
    preferred->setFocus();
}

int CMessageBox::information(QWidget* parent, const QString& text, const QString& title, Buttons buttons,
                             Button defaultButton)
{
    return run(parent, QStyle::SP_MessageBoxInformation, text, title, buttons, defaultButton);
}

int CMessageBox::warning(QWidget* parent, const QString& text, const QString& title, Buttons buttons,
                         Button defaultButton)
{
    return run(parent, QStyle::SP_MessageBoxWarning, text, title, buttons, defaultButton);
}

int CMessageBox::question(QWidget* parent, const QString& text, const QString& title, Buttons buttons,
                          Button defaultButton)
{
    return run(parent, QStyle::SP_MessageBoxQuestion, text, title, buttons, defaultButton);
}

int CMessageBox::run(QWidget* parent, QStyle::StandardPixmap icon, const QString& text, const QString& title,
                     Buttons buttons, Button defaultButton)
{
    buttons &= Buttons(Yes | No | Ok | Cancel);
    if (!buttons)
        buttons = Ok;
    // On the heap, because the parent may take the box with it while it waits.
    const QPointer<CMessageBox> box = new CMessageBox(parent, icon, text, buttons, defaultButton);
    box->setTitle(title);
    box->exec();
    if (!box)
        return resultOfClosing(buttons);
    const int result = box->m_nResult; // not what exec() returned: hiding the box makes that 0
    delete box;
    return result;
}

QString CMessageBox::text() const
{
    return m_pText->toPlainText();
}

void CMessageBox::reject()
{
    done(m_nResult);
}

void CMessageBox::changeEvent(QEvent* event)
{
    CDialog::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        fitText();
}

void CMessageBox::showEvent(QShowEvent* event)
{
    fitText();
    CDialog::showEvent(event); // which centres the box: it has its size by now
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void CMessageBox::fitText()
{
    const QSizeF room = QSizeF(screen()->availableSize()) * largestShare;
    const int character = m_pText->fontMetrics().averageCharWidth();
    const int natural = m_pText->fontMetrics().size(Qt::TextExpandTabs, text()).width() + 1;
    // Not std::clamp(): a small screen may hold less of a large font than the narrowest text.
    const double width =
        std::min({std::max<double>(natural, narrowest * character), double(widest) * character, room.width()});
    // Not the shown document: that one is laid out anew for every size that the text has on the way.
    const std::unique_ptr<QTextDocument> document(m_pText->document()->clone());
    document->setTextWidth(std::ceil(width));

    const bool scrolls = document->size().height() > room.height();
    const double height = std::min(document->size().height(), room.height());
    const int barWidth = scrolls ? m_pText->verticalScrollBar()->sizeHint().width() : 0;
    m_pText->setVerticalScrollBarPolicy(scrolls ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
    m_pText->setFocusPolicy(scrolls ? Qt::StrongFocus : Qt::ClickFocus);
    const QMargins frame = m_pText->contentsMargins();
    m_pText->setFixedSize(static_cast<int>(std::ceil(width)) + barWidth + frame.left() + frame.right(),
                          static_cast<int>(std::ceil(height)) + frame.top() + frame.bottom());
    adjustSize();
}
