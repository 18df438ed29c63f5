// The request on the contracts, their grouping, and the summary line.
#include "dif/Employers.h"

#include "dif/Hours.h"
#include "dif/LedgerRecord.h"
#include "ports/Query.h"
#include "records/StoredFiles.h"
#include "rules/LongTask.h"
#include "rules/Numbers.h"
#include "rules/StatementByStatement.h"
#include "text/Characters.h"
#include "text/Error.h"

#include <algorithm>
#include <utility>

namespace vorandine::dif {
namespace {

namespace contract = records::contract;

constexpr std::size_t AssociationLength = 3;
constexpr std::size_t LongCodeLength = 6;

// Contracts that ended before have no training rights.
constexpr const char* FirstDay = "01/05/2005";

std::string total(text::Fixed4 hundredths) {
    constexpr std::int16_t WholeDigits = 8;
    return rules::Format_Numerique(hundredths.toDecimal().shifted(-HundredthsPlaces), WholeDigits,
                                   Decimals, false);
}

} // namespace

bool isAssociation(std::string_view code) {
    return text::Len(code) == AssociationLength;
}

std::string employerCode(const std::string& stored) {
    return text::Len(stored) == LongCodeLength ? text::Left(stored, AssociationLength) : stored;
}

std::string employerName(ports::Variables& variables, const std::string& code) {
    std::string name;
    rules::StatementByStatement tries;
    tries([&] {
        if (isAssociation(code)) {
            variables.Rec_ASSOCIATION = variables.F_ASSOCIATION->ReadRecord(code);
            name = std::as_const(variables.Rec_ASSOCIATION)(records::association::Name);
        } else {
            variables.Rec_CIVILAIDE = variables.F_CIVILAIDE->ReadRecord(code);
            const records::DBARecord& person = variables.Rec_CIVILAIDE;
            name = person(records::household::Name) + ' ' + person(records::household::FirstName);
        }
    });
    return name;
}

std::string employerNameOrCode(ports::Variables& variables, const std::string& code) {
    std::string name = employerName(variables, code);
    return text::Trim(name).empty() ? code : name;
}

records::DBARecord Employers::contracts() {
    const std::string& caregiver = caregiver_.Etq_CodeAidant.Caption();
    return ports::select(*v_.TheDatabase, W_Params_,
                         ports::Query(contract::File)
                             .with(contract::LeftOut, "=", "")
                             .with(records::Key, "=", caregiver + "]")
                             .with(contract::LastDay, ">=", Conv_Date_.Date_Stockee(FirstDay))
                             .orEqual("")
                             .by(contract::EmployerName)
                             .by(contract::EmployerFirstName)
                             .by(contract::Employer)
                             .by(contract::LastDay),
                         {records::Key, contract::Employer, contract::LastDay});
}

// Rows stand in runs of one employer. A run's line is complete, and added, when an open contract is
// met, else when the run ends: the last date is the latest.
void Employers::Select_DifAidant() {
    rules::LongTask task(control_, world_);
    w_.Lst_DifEmpl.Clear();
    w_.Lst_CodeEmplDif.Clear();
    w_.Lst_ContratDif.Clear();
    notice_.ofEmployers("");
    std::string code;
    std::string date;
    std::string contract;
    const auto endRun = [&] {
        if (!code.empty() && date != OpenContract)
            Remplir_Liste_Dif(code, date, contract);
    };
    const records::DBARecord rows = contracts();
    const int count = rows.DCount();
    for (int i = 1; i <= count; ++i) {
        const std::string employer = employerCode(rows(i, 2));
        // Of an odd contract with several ends the first one counts.
        std::string end = rows(i, 3);
        end.resize(std::min(end.find(records::SubvalueMark), end.size()));
        if (employer != code) {
            endRun();
            code = employer;
            contract = rows(i, 1);
            date = end;
            // A contract that names no employer has no ledger, and gets no line.
            if (end.empty() && !code.empty()) {
                date = OpenContract;
                Remplir_Liste_Dif(code, date, contract);
            }
        }
        if (date != OpenContract)
            date = end;
    }
    endRun();
    task.letEventsThrough();
}

void Employers::Remplir_Liste_Dif(const std::string& W_Empl, const std::string& W_Date,
                                  const std::string& W_Cont) {
    const std::string key = caregiver_.Etq_CodeAidant.Caption() + W_Empl;
    rules::StatementByStatement tries;
    bool found = false;
    const bool read = tries([&] { found = readLedger(v_, key); });
    SummaryLine line;
    line.employer = employerName(v_, W_Empl);
    if (W_Date != OpenContract)
        tries([&] { line.end = Conv_Date_.Date_Affichee(W_Date); });
    if (found)
        sums(line);
    else
        v_.Rec_DIFAIDANT = v_.F_DIFAIDANT->NewRecord(key);
    if (!read)
        notice_.ofEmployers("Des heures n'ont pas pu être lues : les employeurs sans nombres. "
                            "Revenez sur l'onglet pour réessayer.");
    tries([&] {
        w_.Lst_DifEmpl.AddItem(line.toText());
        w_.Lst_CodeEmplDif.AddItem(W_Empl);
        w_.Lst_ContratDif.AddItem(W_Cont);
    });
}

void Employers::sums(SummaryLine& line) const {
    const records::DBARecord& record = v_.Rec_DIFAIDANT;
    text::Fixed4 acquired;
    text::Fixed4 consumed;
    text::Fixed4 remaining;
    const int lines = record.DCount(records::ledger::Date);
    rules::StatementByStatement tries;
    const auto add = [&](text::Fixed4& sum, int list, int i) {
        tries([&] { sum += figure(record, list, i).value_or(text::Fixed4()); });
    };
    for (int i = 1; i <= lines; ++i) {
        add(acquired, records::ledger::Rights, i);
        add(consumed, records::ledger::Hours, i);
    }
    add(remaining, records::ledger::Balance, lines); // read, never worked out
    line.acquired = total(acquired);
    line.consumed = total(consumed);
    line.remaining = total(remaining);
}

} // namespace vorandine::dif
