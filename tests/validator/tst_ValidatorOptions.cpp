#include "tests/support/TestObject.h"
#include "validator/Options.h"
#include "validator/Random.h"

#include <QCoreApplication>

#include <algorithm>

class tst_ValidatorOptions : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void defaults();
    void values();
    void levelsHaveEvents();
    void refused_data();
    void refused();
    void childGetsWhatItsParentGot();
    void numbersAreTheSameEverywhere();

private:
    static Options parse(QStringList arguments)
    {
        arguments.prepend(QStringLiteral("orvel-validate"));
        return Options::parse(arguments);
    }
    // Some file: it is loaded later.
    static QString plugin() { return QCoreApplication::applicationFilePath(); }
};

void tst_ValidatorOptions::defaults()
{
    const Options options = parse({plugin()});
    QVERIFY(options.action == Options::Action::Run);
    QCOMPARE(options.plugin, plugin());
    QCOMPARE(options.strictness, 5);
    QCOMPARE(options.seed, std::uint64_t{1});
    QCOMPARE(options.events, 0);
    QCOMPARE(options.patience, 60);
}

void tst_ValidatorOptions::values()
{
    const Options options = parse({QStringLiteral("--seed"), QStringLiteral("18446744073709551615"), plugin(),
                                   QStringLiteral("--strictness"), QStringLiteral("9"), QStringLiteral("--events"),
                                   QStringLiteral("12"), QStringLiteral("--patience"), QStringLiteral("3")});
    QVERIFY(options.action == Options::Action::Run);
    QCOMPARE(options.seed, std::uint64_t{18446744073709551615U});
    QCOMPARE(options.strictness, 9);
    QCOMPARE(options.events, 12);
    QCOMPARE(options.patience, 3);
    QCOMPARE(options.halfPatience(), 1'500);
}

void tst_ValidatorOptions::levelsHaveEvents()
{
    QCOMPARE(Options::eventsOf(1), 0);
    QCOMPARE(Options::eventsOf(6), 0);
    QCOMPARE(Options::eventsOf(7), 1'000);
    QCOMPARE(Options::eventsOf(10), 200'000);
    QCOMPARE(parse({plugin(), QStringLiteral("--strictness"), QStringLiteral("10")}).events, 200'000);
}

void tst_ValidatorOptions::refused_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QString>("reason");
    const auto row = [](const char* arguments, const char* reason) {
        QTest::newRow(arguments) << QString::fromLatin1(arguments) << QString::fromLatin1(reason);
    };
    row("", "No plug-in is named.");
    row("/none.so", "/none.so: no such file.");
    row("P P", "Unexpected argument 'P'.");
    row("P --strictness 0", "The strictness is a number from 1 to 10.");
    row("P --strictness 11", "The strictness is a number from 1 to 10.");
    row("P --strictness high", "The strictness is a number from 1 to 10.");
    row("P --seed -1", "The seed is a number from 0 to 18446744073709551615.");
    row("P --seed 18446744073709551616", "The seed is a number from 0 to 18446744073709551615.");
    row("P --events many", "The events are a number from 0 to 1000000000.");
    row("P --patience 0", "The patience is a number of seconds from 1 to 3600.");
    row("P --fast", "Unknown option 'fast'.");
    row("P --seed", "Missing value after '--seed'.");
}

void tst_ValidatorOptions::refused()
{
    QFETCH(QString, arguments);
    QFETCH(QString, reason);
    QStringList words = arguments.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    words.replaceInStrings(QStringLiteral("P"), plugin());
    const Options options = parse(words);
    QVERIFY(options.action == Options::Action::Refuse);
    QCOMPARE(options.message,
             QStringLiteral("orvel-validate: %1\nTry 'orvel-validate --help'.\n")
                 .arg(reason.replace(QLatin1String("'P'"), QLatin1Char('\'') + plugin() + QLatin1Char('\''))));
}

void tst_ValidatorOptions::childGetsWhatItsParentGot()
{
    Options options = parse({plugin(), QStringLiteral("--strictness"), QStringLiteral("8"), QStringLiteral("--seed"),
                             QStringLiteral("77"), QStringLiteral("--patience"), QStringLiteral("9")});
    const Options child = parse(options.childArguments(3, QStringLiteral("/trace")));
    QVERIFY(child.action == Options::Action::Child);
    QCOMPARE(child.plugin, plugin());
    QCOMPARE(child.strictness, 8);
    QCOMPARE(child.seed, std::uint64_t{77});
    QCOMPARE(child.events, 10'000);
    QCOMPARE(child.patience, 9);
    QCOMPARE(child.check, 3);
    QCOMPARE(child.trace, QStringLiteral("/trace"));
}

// The figures are part of what a seed means: a finding of another machine is looked for here by its seed.
void tst_ValidatorOptions::numbersAreTheSameEverywhere()
{
    Random first(1, 0);
    Random same(1, 0);
    Random nextEvent(1, 1);
    Random otherSeed(2, 0);
    const std::uint64_t number = first.next();
    QCOMPARE(number, std::uint64_t{10276022874973721191U});
    QCOMPARE(same.next(), number);
    QVERIFY(nextEvent.next() != number);
    QVERIFY(otherSeed.next() != number);
    QList<int> drawn;
    for (int i = 0; i < 8; ++i)
        drawn.append(first.below(100));
    QCOMPARE(drawn, QList<int>({10, 66, 23, 75, 93, 37, 48, 68}));
    QCOMPARE(first.below(0), 0);
    QCOMPARE(first.below(1), 0);
}

SETTINGAREA_TEST_MAIN(tst_ValidatorOptions, QCoreApplication)

#include "tst_ValidatorOptions.moc"
