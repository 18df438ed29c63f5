// Window, request and quotient.
#include "dif/ReferencePay.h"

#include "dif/Employers.h"
#include "ports/Query.h"
#include "records/StoredFiles.h"
#include "text/Fixed4.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace vorandine::dif {
namespace {

using text::Decimal;
using text::Fixed4;

constexpr int MonthsOfYear = 12;
constexpr int SignificantDigits = 15;

std::string period(int year, int month) {
    const std::string digits = std::to_string(month);
    return std::to_string(year) + (digits.size() < 2 ? "0" : "") + digits;
}

Fixed4 numberOr0(const std::string& value) {
    return value.empty() ? Fixed4() : Fixed4(Decimal::require(value));
}

// Up to 15 significant digits of it: rounded once before the last rounding, as the figures that
// people compare it with.
Decimal inDigits(double value) {
    std::array<char, 32> written{};
    const auto end = std::to_chars(written.data(), written.data() + written.size(), value,
                                   std::chars_format::scientific, SignificantDigits - 1)
                         .ptr;
    std::string digits(written.data(), end);
    const std::size_t e = digits.find('e');
    const int power = std::stoi(digits.substr(e + 1));
    digits.resize(e);
    std::replace(digits.begin(), digits.end(), '.', ',');
    return Decimal::require(digits).shifted(power);
}

} // namespace

PayPeriod twelveMonthsTo(int month, int year) {
    const int last = month + 1;
    if (last == MonthsOfYear)
        return {.start = period(year, 1), .end = period(year, last)};
    return {.start = period(year - 1, last + 1), .end = period(year, last)};
}

records::DBARecord payLines(ports::DBADatabase& database, const PaySought& sought) {
    namespace pay = records::pay;
    const bool association = isAssociation(sought.employer);
    ports::Query query(pay::File);
    query.with(records::Key, "=", sought.caregiver + "]")
        .with(pay::Employer, "=", association ? sought.employer + "]" : sought.employer);
    if (association)
        query.with(pay::Agreement, "<>", "02");
    query.with(pay::CountsForDif, "=", "1")
        .with(pay::Period, ">=", sought.period.start)
        .with(pay::Period, "<=", sought.period.end);
    return ports::select(database, query, {records::Key, pay::Hours, pay::NetPay});
}

std::optional<Decimal> payOverHours(const records::DBARecord& rows) {
    Fixed4 pay;
    Fixed4 hours;
    const int count = rows.DCount();
    for (int i = 1; i <= count; ++i) {
        pay += numberOr0(rows(i, 3));
        hours += numberOr0(rows(i, 2));
    }
    if (hours == Fixed4())
        return std::nullopt;
    return inDigits(pay.toDouble() / hours.toDouble());
}

} // namespace vorandine::dif
