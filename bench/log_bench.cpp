// The SCPI log: what recording an exchange costs the session, with its window closed and open, and
// how long the window's rows take.
#include "bench/timing.h"
#include "log/log_model.h"

#include <QCoreApplication>
#include <QDateTime>

#include <chrono>
#include <cstdio>

namespace
{
constexpr int turns = 100;
constexpr int calls = 1000;

void record(ExchangeLog& log)
{
    static const QString sent = QStringLiteral("FREQ 2450000000.000000 Hz;FREQ?");
    static const QString answered = QStringLiteral("2450000000\n");
    Exchange exchange;
    exchange.sent = sent;
    exchange.answered = answered;
    exchange.atMs = QDateTime::currentMSecsSinceEpoch();
    const auto start = std::chrono::steady_clock::now();
    const auto took = std::chrono::steady_clock::now() - start;
    exchange.tookUs = static_cast<int>(took.count());
    log.add(std::move(exchange));
}
} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication application(argc, argv);
    ExchangeLog closed;
    ExchangeLog watched;
    LogModel model(watched);
    model.follow(true);
    const auto batch = [](ExchangeLog& log) {
        return microsecondsOf(calls, [&log] { record(log); });
    };
    const Comparison cost = comparedInTurns(
        turns, [&] { return batch(watched); }, [&] { return batch(closed); });
    std::printf("log, an exchange, closed:     %7.3f us  (aim 0.5)\n", cost.bareUs);
    std::printf("log, an exchange, open:       %7.3f us  (aim 5)\n", cost.us);
    const double take = microsecondsOf(1, [&model] { model.follow(true); });
    std::printf("log, %d rows shown:       %7.1f ms\n", model.rowCount(), take / 1000.0);
    LogFilter filter;
    filter.find(QStringLiteral("2450"));
    const double find = microsecondsOf(1, [&] { model.setFilter(filter); });
    std::printf("log, %d rows searched:    %7.1f ms\n", model.rowCount(), find / 1000.0);
    return 0;
}
