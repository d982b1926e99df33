#pragma once

#include <widgetry/WidgetryGlobal.h>

#include <QColor>
#include <QLineEdit>
#include <QPointer>

class CWarningTip;

// A line edit that can say what is wrong with its text. While the warning is shown the edit has a border in the warning
// colour, and the tip text stands in a small bubble below it (above, where there is no room below), for as long as the
// edit is visible and enabled. The bubble lies on the scrolled content or window that the edit is in and lets the mouse
// through. The tip is also the edit's accessible description. The owner clears the warning; typing does not.
// Style sheets: CWarningTipLineEdit[warning="true"], the bubble as #WarningTip, and the colour of the border as
// qproperty-warningColor. [GUI thread]
class WIDGETRY_EXPORT CWarningTipLineEdit : public QLineEdit
{
    Q_OBJECT
    Q_PROPERTY(bool warning READ isWarningShown NOTIFY notifyWarningChanged)
    Q_PROPERTY(QColor warningColor READ warningColor WRITE setWarningColor NOTIFY notifyWarningChanged)

public:
    explicit CWarningTipLineEdit(QWidget* parent = nullptr);
    ~CWarningTipLineEdit() override;

    // Plain text; takes effect at once when the warning is shown. Empty: only the border warns.
    void setTipText(const QString& text);
    QString tipText() const { return m_tipText; }

    void showWarning();
    void clearWarning();
    bool isWarningShown() const { return m_bWarning; }

    QColor warningColor() const { return m_warningColor; }
    void setWarningColor(const QColor& color);

Q_SIGNALS:
    // The warning was shown or cleared, or has another colour.
    void notifyWarningChanged();

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void setWarning(bool warning);
    void updateTip();

    QString m_tipText;
    QString m_description; // accessible description outside a warning
    QColor m_warningColor;
    QPointer<CWarningTip> m_pTip; // lies on an ancestor, which may destroy it first
    bool m_bWarning = false;
};
