// A save that meets another seat's: what is stored and what the screen says are put together, the
// user is asked where both changed the same thing, and told what came from the other.
#pragma once

#include "control/Subjects.h"
#include "ports/DateObject.h"
#include "ports/Rights.h"
#include "ports/Variables.h"
#include "records/ChangedMeanwhile.h"
#include "records/Merge.h"
#include "widgets/Form.h"
#include "widgets/World.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vorandine::control {

// All that is handed over must outlive it.
class SaveMerge {
  public:
    SaveMerge(ports::Variables& variables, records::DBARecord& W_Params,
              const std::shared_ptr<ports::DroitsModule>& module, ports::DateObject& Conv_Date,
              widgets::UserControl& control, widgets::World& world)
        : v_(variables), W_Params_(W_Params), module_(module), Conv_Date_(Conv_Date),
          control_(control), world_(world) {}

    // What is in Rec_Dossier beside what the user changed.
    struct Save {
        std::string read;                     // the record as the form was opened with it
        std::optional<std::string> untouched; // what a save of that makes of it; none: not known
        std::vector<int> origins;             // of the training lines, in their order
        std::vector<int> filled;              // attributes that the program filled
        bool hoursStored = false;             // of the D.I.F., which stay whatever is answered
    };
    // Stores Rec_Dossier, which is composed. False where the user wants back to the form: nothing
    // is stored then. Throws what storing throws.
    [[nodiscard]] bool store(const Save& save);
    // The same where the user changed nothing: nobody is asked, and a record that is no more stays
    // so.
    void storeUnasked(const Save& save);

  private:
    ports::Variables& v_;
    records::DBARecord& W_Params_;
    const std::shared_ptr<ports::DroitsModule>& module_;
    ports::DateObject& Conv_Date_;
    widgets::UserControl& control_;
    widgets::World& world_;

    // What was stored meanwhile, if anything was: then nothing is written.
    [[nodiscard]] std::optional<records::ChangedMeanwhile>
    written(const std::function<void()>& write) const;
    [[nodiscard]] std::string composedUntouched(const std::string& read) const;
    [[nodiscard]] bool meet(records::ChangedMeanwhile met, const Save& save);
    [[nodiscard]] widgets::Answer ask(const std::vector<records::Point>& conflicts,
                                      const records::ChangedMeanwhile::Maker& maker,
                                      bool hoursStored) const;
    [[nodiscard]] widgets::Answer askDeleted(const records::ChangedMeanwhile::Maker& maker) const;
    // What was made of both, and who else saved.
    void tell(const std::string& made, const records::ChangedMeanwhile::Maker& maker);
    [[nodiscard]] std::string joined(const records::Merged& merged, widgets::Answer answer) const;
};

} // namespace vorandine::control
