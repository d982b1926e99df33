#pragma once

#include <widgetry/CMessageBox.h>

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QtTest>

#include <functional>

// Answers the next modal dialog that opens while it lives.
class ModalAnswer
{
public:
    // `answer` gets the dialog once it is open, and has to close it.
    explicit ModalAnswer(const std::function<void(QWidget*)>& answer)
    {
        QObject::connect(&m_watch, &QTimer::timeout, &m_watch, [this, answer] {
            QWidget* const dialog = QApplication::activeModalWidget();
            if (!dialog || !dialog->isVisible())
                return;
            m_watch.stop();
            m_wasThere = true;
            answer(dialog);
        });
        m_watch.start(1);
    }

    // Presses a button of a message box.
    explicit ModalAnswer(CDialog::Button button)
        : ModalAnswer([this, button](QWidget* dialog) {
              auto* const box = qobject_cast<CMessageBox*>(dialog);
              m_text = box ? box->text() : QStringLiteral("(no message box)");
              if (box && box->button(button))
                  QTest::mouseClick(box->button(button), Qt::LeftButton);
              else
                  dialog->close();
          })
    {
    }

    // Enters a path in a file dialog; an empty one cancels it.
    explicit ModalAnswer(const QString& path)
        : ModalAnswer([path](QWidget* dialog) {
              auto* const files = qobject_cast<QFileDialog*>(dialog);
              if (!files || path.isEmpty()) {
                  dialog->close();
                  return;
              }
              files->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(path);
              QMetaObject::invokeMethod(files, "accept");
          })
    {
    }
    Q_DISABLE_COPY(ModalAnswer)

    bool wasThere() const { return m_wasThere; }
    QString text() const { return m_text; } // of the message box

private:
    QTimer m_watch;
    bool m_wasThere = false;
    QString m_text;
};
