#pragma once

#include "plugin/interface/SEmailSettings.h"

#include <QTabWidget>

class QTableWidget;

// What the settings area is measured beside: three tabs with as many plain widgets of the same kinds. [GUI thread]
class PlainPages : public QTabWidget
{
    Q_OBJECT

public:
    explicit PlainPages(QWidget* parent = nullptr);

    // Puts the recipients into the table, and takes them out again.
    void setRecipients(const QList<SEmailRecipient>& recipients);
    QList<SEmailRecipient> recipients() const;

protected:
    void changeEvent(QEvent* event) override;

private:
    static QWidget* preferences();
    static QWidget* typeLibrary();
    QWidget* healthSettings();

    QTableWidget* m_pTable = nullptr;
};
