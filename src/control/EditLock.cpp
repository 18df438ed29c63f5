// Masquer and Afficher: twins, each of which decides the whole screen by itself.
#include "control/EditLock.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace vorandine::control {
namespace {

using Names = std::array<std::string_view, 9>;

constexpr Names EnabledWhileEditing = {
    "Txt_DatFormAidant",    "Cbo_CodFormAidant", "Txt_HhFormAidant",
    "Txt_ObsFormAidant",    "Cbo_DifFormAidant", "Ong_Vorandine",
    "Cmd_AjouterFormation", "Cmd_OKForm",        "Cmd_AnnulerForm"};

constexpr Names DisabledWhileBrowsing = {
    "Txt_DatFormAidant", "Cbo_CodFormAidant", "Txt_HhFormAidant",
    "Txt_ObsFormAidant", "Cbo_DifFormAidant", "Cmd_AjouterFormation",
    "Cmd_SupprimerForm", "Cmd_OKForm",        "Cmd_AnnulerForm"};

bool among(const Names& names, std::string_view name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

} // namespace

void EditLock::Masquer() {
    for (widgets::Control* const control : screen_.controls)
        control->Enabled(among(EnabledWhileEditing, control->Name()));
}

void EditLock::Afficher() {
    for (widgets::Control* const control : screen_.controls)
        control->Enabled(!among(DisabledWhileBrowsing, control->Name()));
}

void EditLock::openOtherTabs(bool open) {
    screen_.Ong_Vorandine.TabEnabled(1, open);
    screen_.Ong_Vorandine.TabEnabled(2, open);
}

void EditLock::openWaysOut(bool open) {
    screen_.Ong_Vorandine.TabEnabled(0, open);
    screen_.Ong_Vorandine.TabEnabled(1, open);
    screen_.Cmd_OK.Enabled(open);
    screen_.Cmd_Retour.Enabled(open);
}

} // namespace vorandine::control
