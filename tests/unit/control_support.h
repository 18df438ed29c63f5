// A desk with the control on it: an office in a store of memory, ledgers in the form in which the
// control writes them, someone who answers the boxes, and the gestures that tests make often.
#pragma once

#include "apps/host/CaregiverForm.h"
#include "components/Consultation.h"
#include "components/DateConverter.h"
#include "components/Help.h"
#include "components/Rights.h"
#include "frontends/headless/HeadlessWorld.h"
#include "store/Store.h"
#include "unit/store_support.h"
#include "widgets/Gestures.h"

#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace vorandine::control_test {

// Attribute numbers to values.
using Content = std::map<int, std::vector<std::string>>;

// A caregiver's file with `lines` trainings, latest first.
inline Content caregiver(int lines) {
    const std::vector<std::string> codes = {"PSC", "MAN", "HYG", "ALI"};
    Content content{{1, {"N"}},         {2, {"01"}},        {3, {"2001"}},
                    {4, {"Gériatrie"}}, {9, {"Nuit"}},      {10, {"A3", "A1"}},
                    {11, {"20010903"}}, {12, {"20010910"}}, {15, {"Écoutante"}}};
    content[9].resize(7);
    for (int i = 0; i < lines; ++i) {
        const int date = (2005 - i / 336) * 10000 + (12 - i / 28 % 12) * 100 + 28 - i % 28;
        content[5].push_back(std::to_string(date));
        content[6].push_back(codes[static_cast<std::size_t>(i) % codes.size()]);
        content[7].push_back(std::to_string(50 * (i % 200)));
        content[8].push_back("séance " + std::to_string(i));
        content[14].push_back(i % 3 == 0 ? "1" : "0");
    }
    return content;
}

// A ledger with `lines` rights of one hour.
inline Content ledger(int lines) {
    Content content{{2, std::vector<std::string>(static_cast<std::size_t>(lines), "100")}};
    for (int i = 0; i < lines; ++i) {
        content[1].push_back(
            std::to_string((1900 + i / 336) * 10000 + (i / 28 % 12 + 1) * 100 + i % 28 + 1));
        content[4].push_back(std::to_string(100 * (i + 1)));
    }
    return content;
}

class Desk {
  public:
    std::shared_ptr<store::Engine> engine;
    std::vector<Error> errors; // that gestures met
    std::int32_t level = ports::WritingLevel;
    std::string user; // who works here

    explicit Desk(headless::Callbacks callbacks = {},
                  std::shared_ptr<store::Engine> office =
                      store::openEngine("memory:", store::OpenMode::Create))
        : engine(std::move(office)), world_(withToday(std::move(callbacks))),
          dates_([this] { return world_.today(); }), help_(world_),
          rights_(std::make_shared<components::Rights>(
              [this](const std::string&) { return components::ModuleRights{.level = level}; })) {
        putText("TABLES", "DIPLOMES", "^02]01^DEAVS]BEP sanitaire");
        putText("TABLES", "FORMPRO",
                "^PSC]MAN]HYG]ALI^Premiers secours]Manutention]Hygiène]Équilibre");
        putText("TABLES", "QUALIF", "^Écoutante]Auxiliaire de vie");
        putText("ACTIVITES", "A1", "Ménage");
        putText("ACTIVITES", "A2", "Aide au lever");
        putText("ACTIVITES", "A3", "Courses");
        putText("ACTIVITES", "A4", "École et garde");
    }

    // As store_test::marks reads it.
    void putText(const std::string& file, const std::string& key, const std::string& text) {
        engine->file(file)->write(key, store_test::marks(text));
    }
    void put(const std::string& file, const std::string& key, const Content& content) {
        records::DBARecord record;
        for (const auto& [attribute, values] : content)
            for (std::size_t v = 0; v < values.size(); ++v)
                record(attribute, static_cast<int>(v) + 1) = values[v];
        store::Store(engine).OpenFile(file)->WriteRecord(key, std::as_const(record)());
    }

    // The stored text; "" if there is none.
    [[nodiscard]] std::string stored(const std::string& file, const std::string& key) {
        return engine->file(file)->read(key).value_or("");
    }

    [[nodiscard]] std::unique_ptr<host::CaregiverForm> open(const std::string& code) {
        return open(code, help_, std::make_shared<ports::DBAClient>());
    }
    [[nodiscard]] std::unique_ptr<host::CaregiverForm>
    open(const std::string& code, ports::HelpObject& help,
         const std::shared_ptr<ports::DBAClient>& client) {
        const auto store = std::make_shared<store::Store>(engine);
        store->changes().user(user);
        return std::make_unique<host::CaregiverForm>(
            host::HostObjects{world_, dates_, help, client,
                              components::databaseFor(store, *rights_), rights_},
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

// A control of a form by its name.
template <typename Kind>
Kind& in(widgets::Form& form, const std::string& name) {
    auto* const found = dynamic_cast<Kind*>(form.find(name));
    if (found == nullptr)
        throw std::invalid_argument("no such control: " + name);
    return *found;
}
template <typename Kind>
Kind& at(host::CaregiverForm& form, const std::string& name) {
    return in<Kind>(form.form(), name);
}

} // namespace vorandine::control_test
