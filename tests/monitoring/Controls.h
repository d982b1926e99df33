#pragma once

#include "plugin/interface/SEmailSettings.h"

#include <QAbstractButton>
#include <QFocusEvent>
#include <QLabel>
#include <QLineEdit>
#include <QTableWidget>
#include <QtTest>

// The control on `page` whose accessible name is `name`.
template<typename Control>
Control* named(const QWidget& page, const char* name)
{
    QStringList others;
    const auto controls = page.findChildren<Control*>();
    for (Control* control : controls) {
        if (control->accessibleName() == QString::fromUtf8(name))
            return control;
        others.append(control->accessibleName());
    }
    qFatal("There is no control '%s', only '%s'", name, qPrintable(others.join(QStringLiteral("', '"))));
    return nullptr;
}

// The control on `page` that shows `text`.
template<typename Control>
Control* withText(const QWidget& page, const char* text)
{
    QStringList others;
    const auto controls = page.findChildren<Control*>();
    for (Control* control : controls) {
        if (control->text() == QString::fromUtf8(text))
            return control;
        others.append(control->text());
    }
    qFatal("Nothing shows '%s', only '%s'", text, qPrintable(others.join(QStringLiteral("', '"))));
    return nullptr;
}

// Replaces the text of the edit by what the user types; a character that the edit does not take is lost.
inline void type(QLineEdit* edit, const QString& text)
{
    edit->selectAll();
    QTest::keyClick(edit, Qt::Key_Backspace);
    QTest::keyClicks(edit, text);
}

inline void leave(QWidget* edit)
{
    QFocusEvent event(QEvent::FocusOut, Qt::TabFocusReason);
    QCoreApplication::sendEvent(edit, &event);
}

inline QStringList texts(const QList<SEmailRecipient>& recipients)
{
    QStringList list;
    for (const SEmailRecipient& recipient : recipients)
        list.append(recipient.strName + QStringLiteral(" <") + recipient.strAddress + QLatin1Char('>'));
    return list;
}

// The rows of the table of recipients.
inline QStringList rows(const QTableWidget* table)
{
    QStringList list;
    for (int row = 0; row < table->rowCount(); ++row)
        list.append(table->item(row, 0)->text() + QStringLiteral(" <") + table->item(row, 1)->text() +
                    QLatin1Char('>'));
    return list;
}
