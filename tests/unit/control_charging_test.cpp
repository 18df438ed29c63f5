// Hours charged where a scenario does not reach: a disk that fails for one ledger of two, the
// control behind the form, and a table of trainings that is full.
#include "unit/dif_support.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

namespace vorandine::control_test {
namespace {

using namespace widgets;

// The engine of the desk, whose file of ledgers refuses to write one key.
class OneKeyFails : public store::Engine {
  public:
    explicit OneKeyFails(std::shared_ptr<store::Engine> engine)
        : engine_(std::move(engine)), ledgers_(*engine_->file("DIFAIDANT")) {}

    void failing(const std::string& key) { ledgers_.failing = key; }

    store::EngineFile* file(const std::string& name) override {
        return name == "DIFAIDANT" ? &ledgers_ : engine_->file(name);
    }
    std::vector<std::string> files() override { return engine_->files(); }
    void atomically(const std::function<void()>& work) override { engine_->atomically(work); }

  private:
    class Ledgers : public store::EngineFile {
      public:
        explicit Ledgers(store::EngineFile& file) : file_(file) {}
        std::string failing;

        std::optional<std::string> read(std::string_view key) override { return file_.read(key); }
        std::optional<std::string> write(std::string_view key, std::string_view record) override {
            if (key == failing)
                throw Error(errors::DiskFull, "Le disque est plein.");
            return file_.write(key, record);
        }
        std::optional<std::string> erase(std::string_view key) override { return file_.erase(key); }
        void scan(const store::KeyRange& range, const Visitor& visit) override {
            file_.scan(range, visit);
        }

      private:
        store::EngineFile& file_;
    };

    std::shared_ptr<store::Engine> engine_;
    Ledgers ledgers_;
};

template <typename Kind>
Kind& in(Form& form, const std::string& name) {
    return dynamic_cast<Kind&>(*form.find(name));
}

// Marie, under contract with two associations, each of which has 20 hours of rights.
struct Charging {
    std::vector<std::string> told;
    std::function<void(Form&)> user; // what is done in the modal form
    Desk desk{{[this](const Message& message) {
                   told.push_back(message.text);
                   return message.buttons == Buttons::OK ? Answer::OK : Answer::Yes;
               },
               [this](Form& form) { user(form); },
               {},
               {},
               {}}};
    std::shared_ptr<OneKeyFails> disk = std::make_shared<OneKeyFails>(desk.engine);

    Charging() {
        for (const std::string code : {"ABC", "XYZ"}) {
            employ(desk, "00012", code);
            desk.put("DIFAIDANT", "00012" + code,
                     {{1, {"20060101"}}, {2, {"2000"}}, {4, {"2000"}}});
        }
        desk.engine = disk;
    }

    std::string balances(const std::string& code) {
        const records::DBARecord record =
            store::Store(disk).OpenFile("DIFAIDANT")->ReadRecord("00012" + code);
        return record(4);
    }

    static void addUnderDif(host::CaregiverForm& form) {
        press(form, "Cmd_AjouterForm");
        typeText(at<TextField>(form, "Txt_DatFormAidant"), "12/03/2006");
        choose(at<ComboBox>(form, "Cbo_CodFormAidant"), "Hygiène");
        typeText(at<TextField>(form, "Txt_HhFormAidant"), "7,5");
        choose(at<ComboBox>(form, "Cbo_DifFormAidant"), "OUI");
        press(form, "Cmd_OKForm");
    }

    static void chargeAll(Form& form) {
        auto& list = in<ListBox>(form, "Lst_Dif");
        for (int line = 0; line < list.ListCount(); ++line) {
            doubleClickLine(list, line);
            click(in<CommandButton>(form, "Cmd_OKDif"));
        }
    }
};

TEST(ControlCharging, ADiskThatFailsForOneLedgerChargesTheOtherOnce) {
    for (const std::string failing : {"ABC", "XYZ"}) {
        Charging charging;
        const std::string other = failing == "ABC" ? "XYZ" : "ABC";
        charging.user = [&](Form& form) {
            EXPECT_EQ(charging.desk.errors.size(), 0U);
            charging.chargeAll(form);
            charging.disk->failing("00012" + failing);
            for (int attempt = 0; attempt < 2; ++attempt) {
                click(in<CommandButton>(form, "Cmd_OKDif"));
                EXPECT_FALSE(form.unloaded());
                EXPECT_EQ(charging.balances(failing), "2000");
                EXPECT_EQ(charging.balances(other), "2000\xFD"
                                                    "1250");
            }
            charging.disk->failing("");
            click(in<CommandButton>(form, "Cmd_OKDif"));
            EXPECT_TRUE(form.unloaded());
        };
        const auto form = charging.desk.open("00012");
        charging.addUnderDif(*form);
        ASSERT_EQ(charging.told.size(), 2U);
        EXPECT_NE(charging.told[0].find("pas pu être enregistrées : Association " + failing +
                                        " (7,50). Enregistrées : Association " + other +
                                        " (7,50)."),
                  std::string::npos)
            << charging.told[0];
        EXPECT_EQ(charging.balances(failing), charging.balances(other));
        EXPECT_EQ(at<ListBox>(*form, "Lst_DifFormAidant").List(0), "OUI");
    }
}

TEST(ControlCharging, BehindTheFormTheControlWaits) {
    Charging charging;
    host::CaregiverForm* behind = nullptr;
    bool opened = false;
    charging.user = [&](Form& form) {
        opened = true;
        EXPECT_FALSE(behind->control().Enabled());
        EXPECT_EQ(behind->control().MousePointer(), Hourglass);
        EXPECT_EQ(click(at<CommandButton>(*behind, "Cmd_AnnulerForm")), Outcome::Refused);
        form.Unload();
        EXPECT_FALSE(form.unloaded()) << "the system must not close it";
        pressKey(form, Key::Escape);
        EXPECT_TRUE(form.unloaded());
    };
    const auto form = charging.desk.open("00012");
    behind = form.get();
    charging.addUnderDif(*form);
    EXPECT_TRUE(opened);
    EXPECT_TRUE(form->control().Enabled());
    EXPECT_EQ(form->control().MousePointer(), NormalPointer);
}

TEST(ControlCharging, AFullTableTakesNoNewLineAndChargesNothing) {
    Charging charging;
    charging.user = [](Form& /*form*/) { FAIL() << "the form must not open"; };
    charging.desk.put("FORMVORANDINE", "00012", caregiver(32767));
    const auto form = charging.desk.open("00012");
    ASSERT_EQ(at<ListBox>(*form, "Lst_DatFormAidant").ListCount(), 32767);
    charging.addUnderDif(*form);
    ASSERT_EQ(charging.desk.errors.size(), 1U);
    EXPECT_EQ(charging.desk.errors[0].number(), errors::TooManyLines);
    EXPECT_TRUE(at<CommandButton>(*form, "Cmd_OKForm").Enabled()) << "the line stays open";
    pressKey(form->form(), Key::Escape);
    // A line that is there can still be changed, and moves to its place.
    charging.user = [](Form& opened) { pressKey(opened, Key::Escape); };
    doubleClickLine(at<ListBox>(*form, "Lst_DatFormAidant"), 32766);
    paste(at<TextField>(*form, "Txt_DatFormAidant"), "01/01/2010");
    press(*form, "Cmd_OKForm");
    EXPECT_EQ(charging.desk.errors.size(), 1U);
    EXPECT_EQ(at<ListBox>(*form, "Lst_DatFormAidant").List(0), "01/01/2010");
    EXPECT_EQ(at<ListBox>(*form, "Lst_CodeForm").ListCount(), 32767);
}

} // namespace
} // namespace vorandine::control_test
