// The stage's commands.
#include "apps/scenario/Stage.h"

#include "apps/scenario/LineError.h"
#include "components/Consultation.h"
#include "exchange/RecordJson.h"
#include "frontends/headless/HeadlessWorld.h"
#include "records/Layout.h"
#include "text/Characters.h"

#include <nlohmann/json.hpp>

#include <chrono>
#include <type_traits>
#include <utility>

namespace vorandine::scenario {
namespace {

using nlohmann::json;

constexpr const char* MemoryUrl = "memory:";

widgets::Date parseDate(const std::string& text) {
    const std::string digits = text.size() == 10 && text[2] == '/' && text[5] == '/'
                                   ? text.substr(0, 2) + text.substr(3, 2) + text.substr(6)
                                   : std::string();
    if (digits.empty() || digits.find_first_not_of("0123456789") != std::string::npos)
        throw LineError("no date DD/MM/YYYY: " + text);
    const widgets::Date date{std::stoi(digits.substr(4)), std::stoi(digits.substr(2, 2)),
                             std::stoi(digits.substr(0, 2))};
    if (!std::chrono::year_month_day(std::chrono::year(date.year),
                                     std::chrono::month(static_cast<unsigned>(date.month)),
                                     std::chrono::day(static_cast<unsigned>(date.day)))
             .ok())
        throw LineError("the calendar has no " + text);
    return date;
}

template <typename Value>
Value member(const json& value, const std::string& name) {
    try {
        if constexpr (std::is_same_v<Value, int>)
            if (!value.is_number_integer())
                throw LineError("\"" + name + "\" must be a whole number");
        return value.get<Value>();
    } catch (const json::exception&) {
        throw LineError("wrong value of \"" + name + "\": " + toText(value));
    }
}

components::ModuleRights moduleRights(const json& object) {
    if (!object.is_object())
        throw LineError("the rights of a key must be an object: " + toText(object));
    components::ModuleRights rights;
    for (const auto& [name, value] : object.items()) {
        if (name == "niveau")
            rights.level = member<int>(value, name);
        else if (name == "total")
            rights.total = member<bool>(value, name);
        else if (name == "liste")
            rights.listCount = member<int>(value, name);
        else if (name == "activites")
            rights.activities = member<std::vector<std::string>>(value, name);
        else
            throw LineError("rights have no \"" + name + "\"");
    }
    return rights;
}

} // namespace

std::shared_ptr<store::Engine> openStore(const std::string& url) {
    return store::openEngine(url, url == MemoryUrl ? store::OpenMode::Create
                                                   : store::OpenMode::Existing);
}

Stage::Stage(std::shared_ptr<store::Engine> engine, Common& common, const std::string& mark,
             std::string user)
    : engine_(std::move(engine)),
      rehearsal_(std::make_shared<RehearsalEngine>(engine_, &common.journal, mark)),
      records_(engine_), hosted_(std::make_shared<store::Store>(rehearsal_)), common_(common),
      user_(std::move(user)) {}

bool Stage::run(const std::string& command, Words& words) {
    static const std::map<std::string, void (Stage::*)(Words&)> commands{
        {"today", &Stage::setToday},   {"put", &Stage::put},      {"remove", &Stage::remove},
        {"rights", &Stage::setRights}, {"user", &Stage::setUser}, {"fail", &Stage::fail},
        {"guard", &Stage::setGuard},
    };
    const auto found = commands.find(command);
    if (found == commands.end())
        return false;
    (this->*found->second)(words);
    return true;
}

std::shared_ptr<ports::DBADatabase> Stage::handedOver(ports::DroitsUtilisateur& rights) const {
    return guarded_ ? components::databaseFor(hosted_, rights) : hosted_;
}

widgets::Date Stage::today() const {
    return common_.today ? *common_.today : headless::machineDate();
}

std::shared_ptr<store::Store> Stage::database() {
    hosted_->changes().user(user_);
    seated_ = user_;
    return hosted_;
}

std::vector<std::string> Stage::takeJournal() {
    return std::exchange(common_.journal, {});
}

void Stage::aside(const std::function<void()>& work) {
    hosted_->changes().user("");
    rehearsal_->aside(work);
    hosted_->changes().user(seated_);
}

components::ModuleRights Stage::rights(const std::string& key) const {
    const auto found = rights_.find(key);
    return found == rights_.end() ? components::ModuleRights{} : found->second;
}

void Stage::setToday(Words& words) {
    const widgets::Date date = parseDate(words.word("the date"));
    words.end();
    common_.today = date;
}

void Stage::put(Words& words) {
    const std::string name = words.word("the file");
    const std::string key = words.word("the key");
    const json content = words.json();
    const auto file = hosted_->OpenFile(name);
    records::DBARecord record;
    exchange::fill(record, content, [&](const std::string& attribute) {
        return records::dictionaryAttribute(name, attribute).value_or(0);
    });
    aside([&] { file->WriteRecord(key, std::as_const(record)()); });
}

void Stage::remove(Words& words) {
    const std::string name = words.word("the file");
    const std::string key = words.word("the key");
    words.end();
    aside([&] { hosted_->OpenFile(name)->DeleteRecord(key); });
}

void Stage::setRights(Words& words) {
    const json object = words.json();
    if (!object.is_object())
        throw LineError("the rights must be an object: " + toText(object));
    std::map<std::string, components::ModuleRights> rights;
    for (const auto& [key, value] : object.items())
        rights[key] = moduleRights(value);
    rights_ = std::move(rights);
}

void Stage::setUser(Words& words) {
    const std::string user = words.word("the user");
    words.end();
    text::RequirePlain(user, "Le nom de l'utilisateur");
    user_ = user;
}

void Stage::setGuard(Words& words) {
    words.end();
    guarded_ = true;
}

void Stage::fail(Words& words) {
    const std::string first = words.word("the file");
    const bool reads = first == "read" && !words.atEnd();
    const std::string name = reads ? words.word("the file") : first;
    if (!reads && name == "none") {
        words.end();
        rehearsal_->failNothing();
        return;
    }
    const bool ofKey = !reads && !words.atEnd();
    const std::string key = ofKey ? words.word("the key") : std::string();
    words.end();
    checkFile(name);
    if (reads)
        rehearsal_->failReads(name);
    else if (ofKey)
        rehearsal_->failWrites(name, key);
    else
        rehearsal_->failWrites(name);
}

void Stage::checkFile(const std::string& name) {
    if (engine_->file(name) == nullptr)
        throw LineError("the store has no file " + name);
}

} // namespace vorandine::scenario
