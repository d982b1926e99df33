#pragma once

#include <QString>

#include <chrono>
#include <utility>
#include <vector>

// Values of one quantity, measured several times.
class Samples
{
public:
    void add(double value) { m_values.push_back(value); }
    bool isEmpty() const { return m_values.empty(); }

    // The value that the share `part`, 0 .. 1, of all values does not exceed. Not for empty samples.
    double percentile(double part) const;
    double median() const { return percentile(0.5); }

private:
    std::vector<double> m_values;
};

// One line of the table: what was measured here, beside the same for the peer.
struct Measurement
{
    enum Unit
    {
        Seconds,
        Bytes,
    };

    // What is held against `limit`.
    enum Reach
    {
        Nothing, // the line is there for the reader
        Ratio,   // the ratio of the medians
        Value,   // the median of ours
    };

    explicit Measurement(QString lineName, Reach what = Nothing, double highest = 0, Unit unitOfValues = Seconds)
        : name(std::move(lineName)),
          reach(what),
          limit(highest),
          unit(unitOfValues)
    {
    }

    QString name;
    Reach reach;
    double limit; // a ratio, or a value in `unit`
    Unit unit;
    Samples ours;
    Samples peer; // may be empty

    // One measurement of each side.
    void add(double ofOurs, double ofPeer)
    {
        ours.add(ofOurs);
        peer.add(ofPeer);
    }

    double ratio() const { return ours.median() / peer.median(); }

    // Whether there are numbers at all.
    bool isSound() const;
};

// Wall time that `function` takes, in seconds.
template<typename Function>
double secondsOf(Function function)
{
    const auto start = std::chrono::steady_clock::now();
    function();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// Measures both sides by turns, so that whatever else the machine does meets both. Each function gives its value.
template<typename Ours, typename Peer>
void measureByTurns(int repeat, Measurement& line, Ours ours, Peer peer)
{
    for (int i = 0; i < repeat; ++i) {
        line.ours.add(ours());
        line.peer.add(peer());
    }
}

// The table's head and one line of it, in columns or as Markdown.
QString tableHead(bool markdown);
QString tableLine(const Measurement& line, bool markdown);
