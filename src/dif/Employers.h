// The caregiver's employers: found in the contracts, each with the hours of its ledger, one line
// each in three lists kept in step.
#pragma once

#include "dif/Columns.h"
#include "dif/FileNotice.h"
#include "ports/DateObject.h"
#include "ports/Variables.h"
#include "widgets/Form.h"
#include "widgets/ListBox.h"
#include "widgets/Simple.h"
#include "widgets/World.h"

#include <string>
#include <string_view>

namespace vorandine::dif {

// Whose file is open.
struct CaregiverLabels {
    widgets::Label Etq_CodeAidant; // every ledger's key begins with it
    widgets::Label Etq_NomPrenomAidant;
};

struct EmployerWidgets {
    widgets::ListBox Lst_DifEmpl;
    widgets::ListBox Lst_CodeEmplDif; // the employer's code
    widgets::ListBox Lst_ContratDif;  // the key of one of its contracts
};

// Whether the code is an association's: 3 characters. Any other one is a private employer's.
[[nodiscard]] bool isAssociation(std::string_view code);

// A code of 6 characters is an association's with something behind it: its first 3 count.
[[nodiscard]] std::string employerCode(const std::string& stored);

// An association's name (3 characters) or a private employer's first and last name (any other
// length), read into the shared record of its file; "" if it cannot be read.
[[nodiscard]] std::string employerName(ports::Variables& variables, const std::string& code);

// The same, or the code where there is no name.
[[nodiscard]] std::string employerNameOrCode(ports::Variables& variables, const std::string& code);

// All that is handed over must outlive it.
class Employers {
  public:
    Employers(EmployerWidgets& widgets, const CaregiverLabels& caregiver,
              ports::Variables& variables, records::DBARecord& W_Params,
              const ports::DateObject& Conv_Date, FileNotice& notice, widgets::UserControl& control,
              widgets::World& world)
        : w_(widgets), caregiver_(caregiver), v_(variables), W_Params_(W_Params),
          Conv_Date_(Conv_Date), notice_(notice), control_(control), world_(world) {}
    Employers(const Employers&) = delete;
    Employers& operator=(const Employers&) = delete;
    ~Employers() = default;

    // Builds the lists anew from the files; no line is selected then. A long task. What the request
    // throws goes through: the lists are then empty.
    void Select_DifAidant();

    // Adds one line. `W_Date` is the end of the contract in stored form, or OpenContract. Runs on
    // after any error: what cannot be read is left blank, a figure that is no number counts 0.
    void Remplir_Liste_Dif(const std::string& W_Empl, const std::string& W_Date,
                           const std::string& W_Cont);

    static constexpr const char* OpenContract = "RIEN";

  private:
    EmployerWidgets& w_;
    const CaregiverLabels& caregiver_;
    ports::Variables& v_;
    records::DBARecord& W_Params_;
    const ports::DateObject& Conv_Date_;
    FileNotice& notice_;
    widgets::UserControl& control_;
    widgets::World& world_;

    [[nodiscard]] records::DBARecord contracts();
    void sums(SummaryLine& line) const;
};

} // namespace vorandine::dif
