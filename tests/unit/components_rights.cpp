// Rights as they stand in a store, and as the control asks for them.
#include "components/Rights.h"
#include "store/Store.h"
#include "text/Error.h"

#include <gtest/gtest.h>

namespace vorandine::components {
namespace {

class StoredRights : public testing::Test {
  protected:
    void put(const std::string& key, const std::string& level, const std::string& total,
             const std::vector<std::string>& activities) {
        records::DBARecord record = database_->OpenFile("DROITS")->NewRecord(key);
        record(1) = level;
        record(2) = total;
        for (const std::string& code : activities)
            record(3, -1) = code;
        record.DBWrite();
    }

    std::shared_ptr<ports::DroitsModule> module(const std::string& user, const std::string& key) {
        return Rights(storedRights(database_, user)).Droits(key);
    }

  private:
    std::shared_ptr<store::Store> database_ =
        std::make_shared<store::Store>(store::openEngine("memory:", store::OpenMode::Create));
};

TEST_F(StoredRights, AModuleSaysWhatItsRecordSays) {
    put("sylvie*FORMDIF", "2", "1", {"*"});
    put("karim*FORMDIF", "1", "0", {"MEN", "CUI"});

    const auto all = module("sylvie", "FORMDIF");
    EXPECT_EQ(all->Niveau(), 2);
    EXPECT_TRUE(all->AccesTotal());
    EXPECT_EQ(all->DroitSur("MEN", false), true);
    all->ListeDroits()->InitialiserListe();
    EXPECT_EQ(all->ListeDroits()->Count(), 0);

    const auto some = module("karim", "FORMDIF");
    EXPECT_EQ(some->Niveau(), 1);
    EXPECT_FALSE(some->AccesTotal());
    EXPECT_EQ(some->DroitSur("MEN", true), true);
    EXPECT_EQ(some->DroitSur("ME", true), false);
    const auto list = some->ListeDroits();
    EXPECT_EQ(list->Count(), 0) << "not filled yet";
    list->InitialiserListe();
    EXPECT_EQ(list->Count(), 2);
}

TEST_F(StoredRights, WhoHasNoRecordForTheModuleHasNoRight) {
    put("karim*FORMDIF", "2", "1", {"*"});
    for (const auto& rights : {module("karim", "CALCULREMU"), module("odile", "FORMDIF")}) {
        EXPECT_EQ(rights->Niveau(), 0);
        EXPECT_FALSE(rights->AccesTotal());
        EXPECT_EQ(rights->DroitSur("MEN", false), false);
    }
}

TEST_F(StoredRights, ALevelThatIsNoNumberIsZero) {
    for (const char* level : {"", "x", "2x", " 2", "99999999999"}) {
        put("karim*FORMDIF", level, "1", {"*"});
        EXPECT_EQ(module("karim", "FORMDIF")->Niveau(), 0) << level;
    }
}

// A database that cannot be read.
class Broken : public ports::DBADatabase {
  public:
    [[nodiscard]] std::shared_ptr<ports::DBAFile> OpenFile(const std::string& /*name*/) override {
        throw Error(errors::Damaged, "illisible");
    }
    [[nodiscard]] records::DBARecord Select(const std::string& /*request*/) override { return {}; }
};

TEST(Rights, AFailureIsNotTakenForAMissingRecord) {
    Rights rights(storedRights(std::make_shared<Broken>(), "karim"));
    EXPECT_THROW((void)rights.Droits("FORMDIF"), Error);
}

TEST(Rights, TheLookUpIsAskedAnewForEachModule) {
    ModuleRights now;
    Rights rights([&](const std::string& key) {
        EXPECT_EQ(key, "VORANDINEDROIT");
        return now;
    });
    const auto before = rights.Droits("VORANDINEDROIT");
    now.level = 1;
    EXPECT_EQ(before->Niveau(), 2);
    EXPECT_EQ(before->DroitSur("any", false), true);
    EXPECT_EQ(rights.Droits("VORANDINEDROIT")->Niveau(), 1);
}

} // namespace
} // namespace vorandine::components
