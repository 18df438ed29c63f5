// The activities that a caregiver may carry out: all on the left, the chosen ones on the right,
// moved by button, double click or drag as far as the user's rights go.
#pragma once

#include "ports/Rights.h"
#include "ports/Variables.h"
#include "rules/StatementByStatement.h"
#include "widgets/ListBox.h"
#include "widgets/Simple.h"
#include "widgets/World.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace vorandine::experience {

struct ActivityWidgets {
    widgets::ListBox Lst_SectPossibles;
    widgets::ListBox Lst_CodSectPossibles;
    widgets::ListBox Lst_SectSelect;
    widgets::ListBox Lst_CodSectSelect;
    widgets::CommandButton Cmd_Tous;
    widgets::CommandButton Cmd_SelectSect;
    widgets::CommandButton Cmd_SuppSect;
};

// Takes over the events of its widgets. All that is handed over must outlive it; `module` gives the
// rights of the moment.
class Activities {
  public:
    Activities(ActivityWidgets& widgets, ports::Variables& variables, records::DBARecord& W_Params,
               const std::shared_ptr<ports::DroitsModule>& module, widgets::World& world);
    Activities(const Activities&) = delete;
    Activities& operator=(const Activities&) = delete;
    ~Activities() = default;

    // Where every activity goes, sorted by label.
    enum Mode : std::int16_t { Possibles = 1, Selected = 2, Copie = 3 };
    // 1: the list of possible ones. 2: the chosen ones. 3: the activities of Rec_Copie. Adds to
    // what the lists hold. Rights are not asked. What the database throws goes through.
    void Remplir_Secteurs(Mode mode);

    [[nodiscard]] bool noneChosen() const;

    // Shows the codes of `rec` as chosen; every activity if it has none. A code without
    // activity is shown as itself, and kept.
    void show(const records::DBARecord& rec, rules::StatementByStatement& tries);
    // Puts the chosen codes into `rec`, which has none.
    void compose(records::DBARecord& rec) const;

    // Empties the two lists of labels; the codes are left alone.
    void ClearListes();

  private:
    ActivityWidgets& w_;
    ports::Variables& v_;
    records::DBARecord& W_Params_;
    const std::shared_ptr<ports::DroitsModule>& module_;
    widgets::World& world_;
    records::DBARecord W_Activites_;

    void Lst_SectPossibles_DblClick();
    void Cmd_SelectSect_Click();
    void Cmd_Tous_Click();
    void giveUp();
    [[nodiscard]] bool allowed(const std::string& code, bool doubleClick) const;
    void chooseIfAbsent(int i);
    [[nodiscard]] std::string labelOf(const std::string& code, rules::StatementByStatement& tries);
};

} // namespace vorandine::experience
