// Caregivers and users of a store: what a host lists, which new codes are let in.
#include "apps/host/Caregivers.h"
#include "store_support.h"

#include <gtest/gtest.h>

namespace vorandine::host {
namespace {

class HostCaregivers : public testing::Test {
  protected:
    std::shared_ptr<store::Store> store =
        std::make_shared<store::Store>(store::openEngine("memory:", store::OpenMode::Create));
    Caregivers caregivers{store};

    void put(const std::string& file, const std::string& key, const std::string& text) {
        store->OpenFile(file)->WriteRecord(key, text);
    }

    [[nodiscard]] std::string listed() {
        std::string all;
        for (const auto& [code, name] : caregivers.all())
            all += code + "=" + name + ";";
        return all;
    }
};

TEST_F(HostCaregivers, ListsThoseOfAidantAndThoseWhoHaveATrainingFileAlone) {
    EXPECT_EQ(listed(), "");
    put("AIDANT", "00012", "DURAND Marie\xFEignored");
    put("AIDANT", "00011", "LE GOFF\xFDYann");
    put("FORMVORANDINE", "00012", "D");
    put("FORMVORANDINE", "00105", "D");
    EXPECT_EQ(listed(), "00011=LE GOFF Yann;00012=DURAND Marie;00105=;");

    EXPECT_EQ(caregivers.find("00011")->name, "LE GOFF Yann");
    EXPECT_EQ(caregivers.find("00105")->name, "");
    EXPECT_FALSE(caregivers.find("0001"));
}

TEST_F(HostCaregivers, ContentChangesWithTheTrainingFileAndTheLedgersAlone) {
    put("FORMVORANDINE", "00012", "D");
    put("DIFAIDANT", "00012PSD",
        "20060615\xFE"
        "750");
    const std::string before = caregivers.content("00012");
    put("AIDANT", "00012", "DURAND Marie");
    put("DIFAIDANT", "00013PSD",
        "20060615\xFE"
        "750");
    EXPECT_EQ(caregivers.content("00012"), before);
    put("DIFAIDANT", "00012PSD",
        "20060615\xFE"
        "800");
    const std::string after = caregivers.content("00012");
    EXPECT_NE(after, before);
    put("FORMVORANDINE", "00012", "N");
    EXPECT_NE(caregivers.content("00012"), after);
}

TEST_F(HostCaregivers, ListsUsersInFrenchOrderOfTheirNames) {
    put("UTILISATEURS", "a", "ZOLA Émile");
    put("UTILISATEURS", "b", "");
    put("UTILISATEURS", "c", "Éluard");
    put("UTILISATEURS", "d", "ESSAI");
    std::string logins;
    for (const User& user : users(*store))
        logins += user.login + "=" + user.name + ";";
    EXPECT_EQ(logins, "b=b;c=Éluard;d=ESSAI;a=ZOLA Émile;");
}

TEST_F(HostCaregivers, AddsANewOneUnderAFreeCode) {
    const Caregiver added = caregivers.add(" B1 ", "  MÉRY Zoé ");
    EXPECT_EQ(added.code, "B1");
    EXPECT_EQ(added.name, "MÉRY Zoé");
    EXPECT_EQ(listed(), "B1=MÉRY Zoé;");
    EXPECT_EQ(caregivers.add("b1", "Autre casse, autre code").code, "b1");
}

TEST_F(HostCaregivers, RefusesCodesThatAreNoneOrTouchAnother) {
    put("AIDANT", "00012", "DURAND Marie");
    put("FORMVORANDINE", "X100", "D");
    const std::string before = listed();
    const auto why = [&](const std::string& code, const std::string& name = "NOM") {
        const store_test::Raised raised =
            store_test::raisedBy([&] { (void)caregivers.add(code, name); });
        EXPECT_EQ(raised.number, name == "NOM" ? errors::CodeRefused : errors::TextRefused) << code;
        return raised.text;
    };
    EXPECT_NE(why("  ").find("vide"), std::string::npos);
    EXPECT_NE(why("a\"b").find("guillemet"), std::string::npos);
    EXPECT_NE(why("a\tb").find("contrôle"), std::string::npos);
    EXPECT_NE(why("9]").find("crochet"), std::string::npos);
    EXPECT_NE(why("00012").find("déjà pris par DURAND Marie"), std::string::npos);
    EXPECT_NE(why("X100").find("déjà pris par un autre aidant"), std::string::npos);
    EXPECT_NE(why("0001").find("« 00012 » (DURAND Marie) commence par lui"), std::string::npos);
    EXPECT_NE(why("00012A").find("il commence par « 00012 »"), std::string::npos);
    EXPECT_NE(why("X1").find("« X100 »"), std::string::npos);
    EXPECT_NE(why("C1", " ").find("vide"), std::string::npos);
    EXPECT_NE(why("C1", "a\nb").find("Le nom de l'aidant"), std::string::npos);
    EXPECT_EQ(listed(), before);
    EXPECT_EQ(caregivers.add("00013", "Voisin").code, "00013");
}

} // namespace
} // namespace vorandine::host
