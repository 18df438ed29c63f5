// A desk with the control on it: an office in a store of memory, and someone who answers the boxes.
#pragma once

#include "apps/host/CaregiverForm.h"
#include "components/DateConverter.h"
#include "components/Help.h"
#include "components/Rights.h"
#include "frontends/headless/HeadlessWorld.h"
#include "store/Store.h"

#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace vorandine::control_test {

// Attribute numbers to values.
using Content = std::map<int, std::vector<std::string>>;

inline const std::vector<std::string> TrainingCodes = {"PSC", "MAN", "HYG", "ALI"};

// A file in the form in which the control writes it, with `lines` trainings.
inline Content caregiver(int lines) {
    Content content{{1, {"N"}},         {2, {"01"}},        {3, {"2001"}},
                    {4, {"Gériatrie"}}, {9, {"Nuit"}},      {10, {"A3", "A1"}},
                    {11, {"20010903"}}, {12, {"20010910"}}, {15, {"Écoutante"}}};
    content[9].resize(7);
    for (int i = 0; i < lines; ++i) {
        const int date = (2005 - i / 336) * 10000 + (12 - i / 28 % 12) * 100 + 28 - i % 28;
        content[5].push_back(std::to_string(date));
        content[6].push_back(TrainingCodes[static_cast<std::size_t>(i) % TrainingCodes.size()]);
        content[7].push_back(std::to_string(50 * (i % 200)));
        content[8].push_back("séance " + std::to_string(i));
        content[14].push_back(i % 3 == 0 ? "1" : "0");
    }
    return content;
}

class Desk {
  public:
    std::shared_ptr<store::Engine> engine = store::openEngine("memory:", store::OpenMode::Create);
    std::vector<Error> errors; // that gestures met

    explicit Desk(headless::Callbacks callbacks = {})
        : world_(withToday(std::move(callbacks))), dates_([this] { return world_.today(); }),
          help_(world_),
          rights_(std::make_shared<components::Rights>(
              [](const std::string& /*key*/) { return components::ModuleRights{}; })) {
        put("TABLES", "DIPLOMES", {{2, {"02", "01"}}, {3, {"DEAVS", "BEP sanitaire"}}});
        put("TABLES", "FORMPRO",
            {{2, TrainingCodes}, {3, {"Premiers secours", "Manutention", "Hygiène", "Équilibre"}}});
        put("TABLES", "QUALIF", {{2, {"Écoutante", "Auxiliaire de vie"}}});
        put("ACTIVITES", "A1", {{1, {"Ménage"}}});
        put("ACTIVITES", "A2", {{1, {"Aide au lever"}}});
        put("ACTIVITES", "A3", {{1, {"Courses"}}});
        put("ACTIVITES", "A4", {{1, {"École et garde"}}});
    }

    void put(const std::string& file, const std::string& key, const Content& content) {
        records::DBARecord record = store::Store(engine).OpenFile(file)->NewRecord(key);
        for (const auto& [attribute, values] : content)
            for (std::size_t v = 0; v < values.size(); ++v)
                record(attribute, static_cast<int>(v) + 1) = values[v];
        record.DBWrite();
    }

    // The stored text; "" if there is none.
    [[nodiscard]] std::string stored(const std::string& key) {
        return engine->file("FORMVORANDINE")->read(key).value_or("");
    }

    [[nodiscard]] std::unique_ptr<host::CaregiverForm> open(const std::string& code) {
        return std::make_unique<host::CaregiverForm>(
            host::HostObjects{world_, dates_, help_, std::make_shared<ports::DBAClient>(),
                              std::make_shared<store::Store>(engine), rights_},
            code, "DURAND Marie", [this](const Error& error) { errors.push_back(error); });
    }

  private:
    headless::HeadlessWorld world_;
    components::DateConverter dates_;
    components::Help help_;
    std::shared_ptr<components::Rights> rights_;

    static headless::Callbacks withToday(headless::Callbacks callbacks) {
        callbacks.today = [] { return widgets::Date{2006, 6, 15}; };
        return callbacks;
    }
};

// A control of the form by its name.
template <typename Kind>
Kind& at(host::CaregiverForm& form, const std::string& name) {
    auto* const found = dynamic_cast<Kind*>(form.form().find(name));
    if (found == nullptr)
        throw std::invalid_argument("no such control: " + name);
    return *found;
}

} // namespace vorandine::control_test
