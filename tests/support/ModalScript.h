#pragma once

#include <widgetry/CMessageBox.h>

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QtTest>

#include <functional>

// Answers the message boxes and file dialogs that open while it lives, one after the other, a file dialog's own warning
// of a file that exists with Yes. What opens without an answer is noted as unexpected, and closed.
class ModalScript
{
public:
    ModalScript()
    {
        // Queued: an answer may open the next box before it is done, and a timer does not interrupt itself.
        QObject::connect(
            &m_watch, &QTimer::timeout, &m_look, [this] { look(); }, Qt::QueuedConnection);
        m_watch.start(1);
    }
    Q_DISABLE_COPY(ModalScript)

    ModalScript& press(CDialog::Button button)
    {
        m_answers.append({button, {}, {}});
        return *this;
    }
    // Chooses a file or folder; cancels for an empty path.
    ModalScript& choose(const QString& path)
    {
        m_answers.append({CDialog::Cancel, path, {}});
        return *this;
    }
    ModalScript& chooseAll(const QStringList& paths)
    {
        return choose(QLatin1Char('"') + paths.join(QStringLiteral("\" \"")) + QLatin1Char('"'));
    }
    // Does this with the next box or dialog, which it has to end.
    ModalScript& use(const std::function<void(QWidget*)>& function)
    {
        m_answers.append({CDialog::Cancel, {}, function});
        return *this;
    }

    // What has opened so far: "title: text [buttons, the default one in brackets]" or "caption: filter".
    QStringList seen() const { return m_seen; }
    bool isDone() const { return m_answers.isEmpty(); }

private:
    struct Answer
    {
        CDialog::Button button;
        QString file;
        std::function<void(QWidget*)> use;
    };

    void look()
    {
        QWidget* const dialog = QApplication::activeModalWidget();
        if (dialog && dialog->isVisible() && !m_answers.isEmpty() && m_answers.first().use) {
            m_answers.takeFirst().use(dialog);
            return;
        }
        auto* const box = qobject_cast<CMessageBox*>(dialog);
        auto* const files = qobject_cast<QFileDialog*>(dialog);
        if (auto* const warning = qobject_cast<QMessageBox*>(dialog)) {
            m_seen.append(QStringLiteral("warning"));
            warning->button(QMessageBox::Yes)->click();
            return;
        }
        if ((!box && !files) || !dialog->isVisible())
            return;
        if (m_answers.isEmpty()) {
            m_seen.append(QStringLiteral("unexpected ") + (box ? box->text() : dialog->windowTitle()));
            dialog->close();
            return;
        }
        const Answer answer = m_answers.takeFirst();
        if (box)
            answerBox(box, answer.button);
        else
            answerFileDialog(files, answer.file);
    }

    void answerBox(CMessageBox* box, CDialog::Button button)
    {
        QStringList buttons;
        for (const CDialog::Button known : {CDialog::Yes, CDialog::No, CDialog::Ok, CDialog::Cancel}) {
            if (const QPushButton* push = box->button(known))
                buttons.append(push->isDefault() ? QLatin1Char('(') + push->text() + QLatin1Char(')') : push->text());
        }
        m_seen.append(
            QStringLiteral("%1: %2 [%3]").arg(box->windowTitle(), box->text(), buttons.join(QLatin1Char(' '))));
        if (box->button(button))
            QTest::mouseClick(box->button(button), Qt::LeftButton);
        else
            box->close();
    }

    void answerFileDialog(QFileDialog* dialog, const QString& file)
    {
        m_seen.append(
            QStringLiteral("%1: %2").arg(dialog->windowTitle(), dialog->nameFilters().join(QLatin1Char(';'))));
        if (file.isEmpty()) {
            dialog->close();
            return;
        }
        dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(file);
        QMetaObject::invokeMethod(dialog, "accept");
    }

    QTimer m_watch;
    QObject m_look;
    QList<Answer> m_answers;
    QStringList m_seen;
};

// What a message box of the plug-in is seen as.
inline QString information(const char* text)
{
    return QStringLiteral("Orvel: %1 [(OK)]").arg(QLatin1String(text));
}
inline QString question(const char* text)
{
    return QStringLiteral("Orvel: %1 [(&Yes) &No]").arg(QLatin1String(text));
}
