#pragma once

#include <QEvent>
#include <QStyle>
#include <QStyleOptionSpinBox>
#include <QWheelEvent>

#include <algorithm>
#include <utility>

// What CSpinBox and CDoubleSpinBox add to the spin boxes of Qt.
template<typename SpinBox>
class SpinBoxBehaviour : public SpinBox
{
public:
    using Value = decltype(std::declval<SpinBox>().value());

    // As in Qt; what is set through another type of pointer counts from the next change of size on.
    void setRange(Value minimum, Value maximum)
    {
        SpinBox::setRange(minimum, maximum);
        fitButtons();
    }
    void setSuffix(const QString& suffix)
    {
        SpinBox::setSuffix(suffix);
        fitButtons();
    }

protected:
    explicit SpinBoxBehaviour(QWidget* parent)
        : SpinBox(parent)
    {
        this->setFocusPolicy(Qt::StrongFocus);
    }

    void wheelEvent(QWheelEvent* event) override
    {
        if (this->hasFocus())
            SpinBox::wheelEvent(event);
        else
            event->ignore();
    }

    void resizeEvent(QResizeEvent* event) override
    {
        SpinBox::resizeEvent(event);
        fitButtons();
    }

    void changeEvent(QEvent* event) override
    {
        SpinBox::changeEvent(event);
        if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
            fitButtons();
    }

private:
    void fitButtons()
    {
        const auto widthOf = [this](Value value) {
            return this->fontMetrics().horizontalAdvance(this->prefix() + this->textFromValue(value) + this->suffix());
        };
        QStyleOptionSpinBox option;
        this->initStyleOption(&option);
        option.buttonSymbols = SpinBox::UpDownArrows;
        const int room =
            this->style()->subControlRect(QStyle::CC_SpinBox, &option, QStyle::SC_SpinBoxEditField, this).width();
        const bool fits = std::max(widthOf(this->minimum()), widthOf(this->maximum())) + editMargins <= room;
        this->setButtonSymbols(fits ? SpinBox::UpDownArrows : SpinBox::NoButtons);
    }

    // Pixels of a line edit's width that its text does not get: two at either side and one for the cursor.
    static constexpr int editMargins = 5;
};
