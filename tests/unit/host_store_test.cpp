// What a host reads of a store: caregivers, users and their rights, and which new codes are let in.
#include "apps/host/Caregivers.h"
#include "apps/host/ChargesNotice.h"
#include "apps/host/NewsInWords.h"
#include "apps/host/SavingNotice.h"
#include "components/DateConverter.h"
#include "components/Rights.h"
#include "store_support.h"

#include <gtest/gtest.h>

namespace vorandine::host {
namespace {

class HostStore : public testing::Test {
  protected:
    std::shared_ptr<store::Engine> engine = store::openEngine("memory:", store::OpenMode::Create);
    std::shared_ptr<store::Store> store = std::make_shared<store::Store>(engine);
    components::DateConverter dates{[] { return widgets::Date{2006, 12, 1}; }};
    Caregivers caregivers{store};

    void put(const std::string& file, const std::string& key, const std::string& text) {
        store->OpenFile(file)->WriteRecord(key, store_test::marks(text));
    }
    std::shared_ptr<ports::DroitsModule> rightsOf(const std::string& user) {
        return components::Rights(components::storedRights(store, user)).Droits("FORMDIF");
    }
    [[nodiscard]] std::string listed() {
        std::string all;
        for (const auto& [code, name] : caregivers.all())
            all += code + "=" + name + ";";
        return all;
    }
};

TEST_F(HostStore, ListsThoseOfAidantAndThoseWhoHaveATrainingFileAlone) {
    EXPECT_EQ(listed(), "");
    put("AIDANT", "00012", "DURAND Marie^ignored");
    put("AIDANT", "00011", "LE GOFF]Yann");
    put("FORMVORANDINE", "00012", "D");
    put("FORMVORANDINE", "00105", "D");
    EXPECT_EQ(listed(), "00011=LE GOFF Yann;00012=DURAND Marie;00105=;");
    EXPECT_EQ(caregivers.find("00011")->name, "LE GOFF Yann");
    EXPECT_EQ(caregivers.find("00105")->name, "");
    EXPECT_FALSE(caregivers.find("0001"));

    put("UTILISATEURS", "a", "ZOLA Émile");
    put("UTILISATEURS", "b", "");
    put("UTILISATEURS", "c", "Éluard");
    std::string logins;
    for (const User& user : users(*store))
        logins += user.login + "=" + user.name + ";";
    EXPECT_EQ(logins, "b=b;c=Éluard;a=ZOLA Émile;");
}

TEST_F(HostStore, TellsBeforeWhatSavingAFileErases) {
    put("TABLES", "DIPLOMES", "^01^BEP");
    put("TABLES", "QUALIF", "^Écoutante");
    put("FORMVORANDINE", "1", "N^01^^^20060101^PSC^750^^]]]]]]a]b^A1^^^^1^Écoutante");
    put("TABLES", "FORMPRO", "");
    const auto saving = [&](const char* code) { return savingNotice(readCaregiver(store, code)); };
    put("DIFAIDANT", "1ADM", "20060310^]500^100^-100");
    EXPECT_EQ(saving("1")->text,
              "Un enregistrement effacera : l'expérience n° 8 « b » ; les droits "
              "du D.I.F. « 500 » en position 2, au-delà de la dernière ligne "
              "(1) (ADM).");
    put("FORMVORANDINE", "1", "N^99^^^1/2/2006^PSC]MANX^^^^^^^^^^1]2]3]4]5]6]7]8]9");
    const std::string notice = saving("1")->text;
    EXPECT_NE(notice.find("formation n° 1, que remplacera « 20060201 » ; le co"),
              std::string::npos);
    EXPECT_TRUE(notice.ends_with("l'attribut 16 « 7 » ; et 3 autres.")) << notice;
    EXPECT_FALSE(saving("2"));
}

TEST_F(HostStore, TellsHoursAndTrainingsThatDoNotAnswerEachOther) {
    for (const char* const name : {"DIPLOMES", "QUALIF"})
        put("TABLES", name, "");
    put("TABLES", "FORMPRO", "^MAN]PSC^Manutention]Premiers secours");
    put("ASSOCIATION", "ADM", "ADMR");
    put("FORMVORANDINE", "1",
        "D^^^^20060310]20060311]20060312^MAN]PSC]PSC^600]700]700^^^^^^^1]1]0");
    constexpr store::Moment at = 1142157600000000;
    store::Store other(engine, [] { return at; });
    other.changes().user("odile");
    other.OpenFile("DIFAIDANT")
        ->WriteRecord("1ADM", store_test::marks("20060310]20060312^]^600]700^-600]-1300^MAN]PSC"));
    const auto notice = [&] {
        CaregiverRecords caregiver = readCaregiver(store, "1");
        return chargesNotice(caregiver, dates).value_or(Notice{}).text;
    };
    EXPECT_EQ(notice(),
              "Heures imputées sans formation OUI dans le dossier : 12/03/2006 Premiers secours "
              "(ADMR, par odile le " +
                  store::localTime(store::momentText(at)) +
                  "). Quelqu'un travaille peut-être encore dans "
                  "ce dossier : attendez alors qu'il l'ait enregistré. Sinon, supprimez-les dans "
                  "l'onglet D.I.F. ; si la formation a eu lieu, saisissez-la ensuite avec OUI. "
                  "Formations OUI sans heures imputées : 11/03/2006 Premiers secours. Ouvrez-les, "
                  "choisissez NON et Ok ; rouvrez-les, choisissez OUI, l'employeur et Ok.");
    // What is charged in a ledger that cannot be read is not known.
    engine->file("DIFAIDANT")->write("1X", "\x01");
    EXPECT_EQ(notice().find("Formations OUI"), std::string::npos) << notice();
    put("DIFAIDANT", "1ADM", "20060310^^600^-600^MAN");
    EXPECT_EQ(notice(), "");
}

TEST_F(HostStore, TellsWhatOthersHaveMadeOfAFile) {
    for (const char* const name : {"DIPLOMES", "QUALIF"})
        put("TABLES", name, "");
    put("TABLES", "FORMPRO", "^MAN^Manutention");
    put("FORMVORANDINE", "1", "D^^2004^^20060310^MAN^600^^^^^^^0");
    News news(store, "1");
    store::Store other(engine->another());
    const auto change = [&](const char* user, const char* file, const char* key, const char* text) {
        other.changes().user(user);
        other.OpenFile(file)->WriteRecord(key, store_test::marks(text));
    };
    change("odile", "FORMVORANDINE", "1", "D^^2005^^^^^^^");
    change("karim", "DIFAIDANT", "1ADM", "20060310^2000^^2000");
    change("karim", "DIFAIDANT", "1ADM", "20060310^2000^^1900");
    change("karim", "FORMVORANDINE", "11", "D"); // another's
    other.OpenFile("FORMVORANDINE")->DeleteRecord("1");
    EXPECT_EQ(news.ask().size(), 2U); // one a user
    std::string all;
    for (const NewsInWords& one : newsInWords(store, "1", news.told(), dates)) {
        all += one.head.substr(0, one.head.find(',')) + ":";
        for (const std::string& line : one.lines)
            all += " " + line + ";";
    }
    EXPECT_EQ(all, "odile: année du diplôme : « 2005 »; formation supprimée : « 10/03/2006, "
                   "Manutention, 6,00 h, D.I.F. NON »;karim: D.I.F., ADM : ajouté 10/03/2006 "
                   "20,00;karim: D.I.F., ADM : soldes recalculés;karim: dossier supprimé;");
}

TEST_F(HostStore, AddsUnderAFreeCodeAndSaysWhyAnotherIsNone) {
    const Caregiver added = caregivers.add(" B1 ", "  MÉRY Zoé ");
    EXPECT_EQ(added.code + "=" + added.name, "B1=MÉRY Zoé");
    EXPECT_EQ(caregivers.add("b1", "Autre casse, autre code").code, "b1");
    put("AIDANT", "00012", "DURAND Marie");
    put("FORMVORANDINE", "X100", "D");
    const std::string before = listed();
    const char* const refused[][3] = {{"  ", "NOM", "vide"},
                                      {"a\"b", "NOM", "guillemet"},
                                      {"9]", "NOM", "crochet"},
                                      {"00012", "NOM", "déjà pris par DURAND Marie"},
                                      {"X100", "NOM", "déjà pris par un autre aidant"},
                                      {"0001", "NOM", "« 00012 » (DURAND Marie) commence par lui"},
                                      {"00012A", "NOM", "il commence par « 00012 »"},
                                      {"C1", "a\nb", "Le nom de l'aidant"}};
    for (const auto& [code, name, why] : refused) {
        const auto raised = store_test::raisedBy([&] { (void)caregivers.add(code, name); });
        EXPECT_EQ(raised.number,
                  std::string(code) == "C1" ? errors::TextRefused : errors::CodeRefused)
            << code;
        EXPECT_NE(raised.text.find(why), std::string::npos) << code << ": " << raised.text;
    }
    EXPECT_EQ(listed(), before);
    EXPECT_EQ(caregivers.add("00013", "Voisin").code, "00013");
}

TEST_F(HostStore, AModuleSaysWhatItsRecordSays) {
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
        store->OpenFile("DROITS")->DeleteRecord("karim*FORMDIF");
        if (!one.record.empty())
            put("DROITS", "karim*FORMDIF", one.record);
        const auto rights = rightsOf("karim");
        EXPECT_EQ(rights->Niveau(), one.level);
        EXPECT_EQ(rights->AccesTotal(), one.all);
        EXPECT_EQ(rights->DroitSur("MEN", false), one.onMen);
        EXPECT_EQ(rights->ListeDroits()->Count(), 0) << "not filled yet";
        const auto list = rights->ListeDroits();
        list->InitialiserListe();
        EXPECT_EQ(list->Count(), one.listed);
        EXPECT_EQ(rightsOf("odile")->Niveau(), 0);
    }
}

} // namespace
} // namespace vorandine::host
