// One module of rights with its list of restrictions, and the look-up in the file DROITS.
#include "components/Rights.h"

#include "records/StoredFiles.h"
#include "text/Error.h"

#include <algorithm>
#include <charconv>
#include <utility>

namespace vorandine::components {
namespace {

namespace right = records::right;

constexpr const char* EveryActivity = "*";

bool holds(const std::vector<std::string>& activities, const std::string& code) {
    return std::find(activities.begin(), activities.end(), code) != activities.end();
}

class RestrictionList : public ports::ListeDroits {
  public:
    explicit RestrictionList(int entries) : entries_(entries) {}
    void InitialiserListe() override { count_ = entries_; }
    [[nodiscard]] int Count() const override { return count_; }

  private:
    int entries_;
    int count_ = 0;
};

class Module : public ports::DroitsModule {
  public:
    explicit Module(ModuleRights rights)
        : rights_(std::move(rights)), list_(std::make_shared<RestrictionList>(rights_.listCount)) {}

    [[nodiscard]] std::int32_t Niveau() override { return rights_.level; }
    [[nodiscard]] std::optional<bool> DroitSur(const std::string& code,
                                               bool /*doubleClick*/) override {
        return holds(rights_.activities, code) || holds(rights_.activities, EveryActivity);
    }
    [[nodiscard]] bool AccesTotal() override { return rights_.total; }
    [[nodiscard]] std::shared_ptr<class ports::ListeDroits> ListeDroits() override { return list_; }

  private:
    ModuleRights rights_;
    std::shared_ptr<RestrictionList> list_;
};

std::int32_t levelOf(const std::string& text) {
    std::int32_t level = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, level);
    return error == std::errc{} && stop == end ? level : 0;
}

ModuleRights read(const records::DBARecord& record) {
    ModuleRights rights;
    rights.level = levelOf(record(right::Level));
    rights.total = record(right::TotalAccess) == "1";
    rights.activities.clear();
    for (int v = 1; v <= record.DCount(right::Activities); ++v)
        rights.activities.push_back(record(right::Activities, v));
    rights.listCount =
        holds(rights.activities, EveryActivity) ? 0 : static_cast<int>(rights.activities.size());
    return rights;
}

} // namespace

Rights::Rights(std::function<ModuleRights(const std::string&)> lookUp)
    : lookUp_(std::move(lookUp)) {}

std::shared_ptr<ports::DroitsModule> Rights::Droits(const std::string& key) {
    return std::make_shared<Module>(lookUp_(key));
}

std::function<ModuleRights(const std::string&)>
storedRights(std::shared_ptr<ports::DBADatabase> database, std::string user) {
    return [database = std::move(database), user = std::move(user)](const std::string& key) {
        const auto stored = ports::find(*database->OpenFile(right::File), user + "*" + key);
        return stored ? read(*stored)
                      : ModuleRights{.level = 0, .total = false, .listCount = 0, .activities = {}};
    };
}

} // namespace vorandine::components
