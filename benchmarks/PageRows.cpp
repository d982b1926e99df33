#include "benchmarks/PaintedWindow.h"
#include "benchmarks/PlainPages.h"
#include "benchmarks/Rows.h"
#include "benchmarks/Stage.h"
#include "monitoring/MailFormats.h"
#include "multircv/CMultiRcvCabinetSetDlg.h"

#include <QCoreApplication>
#include <QDialog>
#include <QTranslator>
#include <QVBoxLayout>

#include <algorithm>
#include <iterator>

namespace {

constexpr int tabs = 3;

SSettings recordWith(int recipients)
{
    SSettings settings;
    for (int i = 0; i < recipients; ++i)
        settings.email.lstRecipients.append(
            {QStringLiteral("Name %1").arg(i), QStringLiteral("recipient.%1@host.com").arg(i)});
    return settings;
}

// Seconds from another language to the paint of the page that is shown.
template<typename ShowTab>
double secondsOfLanguageSwitch(QWidget* window, ShowTab showTab)
{
    QTranslator chinese;
    if (!chinese.load(QStringLiteral("settingarea_zh_CN"),
                      QCoreApplication::applicationDirPath() + QStringLiteral("/translations")))
        qFatal("There is no catalogue");
    for (int tab = tabs - 1; tab >= 0; --tab) { // each page is laid out and painted before
        showTab(tab);
        paintNow(window);
    }
    const double seconds = secondsOf([&] {
        QCoreApplication::installTranslator(&chinese);
        paintNow(window);
    });
    QCoreApplication::removeTranslator(&chinese);
    paintNow(window);
    return seconds;
}

} // namespace

std::vector<Measurement> measureLanguageSwitch(const BenchOptions& options)
{
    ISettingInterface& area = settingArea();
    area.setSettings(SSettings());
    area.widget()->resize(1280, 800);
    PlainPages plain;
    plain.resize(1280, 800);

    Measurement line(QStringLiteral("language switch with all pages built, beside plain widgets"));
    const auto ours = [&] {
        area.widget()->show();
        const double seconds = secondsOfLanguageSwitch(area.widget(), [&area](int tab) { area.setCurrentTab(tab); });
        area.widget()->hide();
        return seconds;
    };
    const auto peer = [&] {
        plain.show();
        const double seconds = secondsOfLanguageSwitch(&plain, [&plain](int tab) { plain.setCurrentIndex(tab); });
        plain.hide();
        return seconds;
    };
    measureByTurns(options.repeat, line, ours, peer);
    return {line};
}

std::vector<Measurement> measureRecord(const BenchOptions& options)
{
    ISettingInterface& area = settingArea();
    area.setTypeLibraryPath({});
    const SSettings settings = recordWith(1'000);
    PlainPages plain;

    Measurement set(QStringLiteral("setSettings with 1,000 recipients, beside a table of plain items"));
    Measurement get(QStringLiteral("- getSettings"));
    for (int i = 0; i < options.repeat; ++i) {
        area.setSettings(recordWith(i)); // another record, so that all of it changes
        plain.setRecipients({});
        set.ours.add(secondsOf([&] { area.setSettings(settings); }));
        set.peer.add(secondsOf([&] { plain.setRecipients(settings.email.lstRecipients); }));
        int count = 0;
        get.ours.add(secondsOf([&] { count += area.getSettings()->email.lstRecipients.size(); }));
        get.peer.add(secondsOf([&] { count += plain.recipients().size(); }));
        if (count != 2 * settings.email.lstRecipients.size())
            qFatal("%d recipients came back", count);
    }
    area.setSettings(SSettings());
    return {set, get};
}

std::vector<Measurement> measureAddressCheck(const BenchOptions& options)
{
    constexpr int longest = 32'767; // characters that a line edit holds
    const QString tail = QStringLiteral("@host.com");
    const QString addresses[] = {QString(longest - tail.size(), QLatin1Char('a')) + tail,
                                 QString(longest, QLatin1Char('a')), QString(longest, QLatin1Char('.')),
                                 QStringLiteral("a@") + QString(longest - 2, QLatin1Char('0'))};

    Measurement line(QStringLiteral("four addresses of 32,767 characters are checked"), Measurement::Value, 0.001);
    for (int i = 0; i < options.repeat; ++i) {
        line.ours.add(secondsOf([&] {
            const auto valid = std::count_if(std::begin(addresses), std::end(addresses),
                                             [](const QString& address) { return isMailAddress(address); });
            if (valid != 1)
                qFatal("%ld of the addresses are valid", long(valid));
        }));
    }
    return {line};
}

std::vector<Measurement> measureWizard(const BenchOptions& options)
{
    const QString library = usualLibrary(options).path(options.files);
    settingArea().setTypeLibraryPath(library);

    Measurement line(QStringLiteral("the wizard opens with 10,000 types, beside a plain dialog"));
    const auto ours = [&] {
        return secondsOf([&] {
            CMultiRcvCabinetSetDlg wizard(library);
            wizard.show();
            paintNow(&wizard);
        });
    };
    const auto plain = [] {
        return secondsOf([] {
            QDialog dialog;
            (new QVBoxLayout(&dialog))->addWidget(new PlainPages);
            dialog.show();
            paintNow(&dialog);
        });
    };
    measureByTurns(options.repeat, line, ours, plain);
    return {line};
}
