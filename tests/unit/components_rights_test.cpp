// Rights as they stand in a store: what a record means, and what there is without one.
#include "components/Rights.h"
#include "store/Store.h"
#include "store_support.h"

#include <gtest/gtest.h>

namespace vorandine::components {
namespace {

TEST(StoredRights, AModuleSaysWhatItsRecordSays) {
    const auto store =
        std::make_shared<store::Store>(store::openEngine("memory:", store::OpenMode::Create));
    struct Case {
        std::string record; // without one where empty
        int level;
        bool all;
        std::optional<bool> onMen; // the right on the activity MEN
        int listed;                // once the list is filled
    };
    for (const Case& one : std::vector<Case>{{"2^1^*", 2, true, true, 0},
                                             {"1^0^MEN]CUI", 1, false, true, 2},
                                             {"1^0^MENA", 1, false, false, 1},
                                             {"2x^1^*", 0, true, true, 0},
                                             {"99999999999^1^*", 0, true, true, 0},
                                             {"", 0, false, false, 0}}) {
        SCOPED_TRACE(one.record);
        if (one.record.empty())
            store->OpenFile("DROITS")->DeleteRecord("karim*FORMDIF");
        else
            store->OpenFile("DROITS")->WriteRecord("karim*FORMDIF", store_test::marks(one.record));
        const auto rights = Rights(storedRights(store, "karim")).Droits("FORMDIF");
        EXPECT_EQ(rights->Niveau(), one.level);
        EXPECT_EQ(rights->AccesTotal(), one.all);
        EXPECT_EQ(rights->DroitSur("MEN", false), one.onMen);
        EXPECT_EQ(rights->ListeDroits()->Count(), 0) << "not filled yet";
        const auto list = rights->ListeDroits();
        list->InitialiserListe();
        EXPECT_EQ(list->Count(), one.listed);
        EXPECT_EQ(Rights(storedRights(store, "odile")).Droits("FORMDIF")->Niveau(), 0);
    }
}

TEST(StoredRights, AFailureIsNotTakenForAMissingRecord) {
    const std::shared_ptr engine = store::openEngine("memory:", store::OpenMode::Create);
    engine->file("DROITS")->write("karim*FORMDIF", "\xE9");
    Rights rights(storedRights(std::make_shared<store::Store>(engine), "karim"));
    EXPECT_THROW((void)rights.Droits("FORMDIF"), Error);
}

} // namespace
} // namespace vorandine::components
