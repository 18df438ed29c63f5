// Placing the control, handing it its objects, and the close button of its form.
#include "apps/host/CaregiverForm.h"

#include "components/Parameters.h"
#include "text/Characters.h"
#include "widgets/Gestures.h"
#include "widgets/Kinds.h"

#include <utility>

namespace vorandine::host {
namespace {

constexpr widgets::Place ControlPlace{0, 0, 9765, 6630};

} // namespace

void checkCode(const std::string& code) {
    const auto refuse = [](const std::string& why) {
        throw Error(errors::CodeRefused, "Le code de l'aidant est refusé : " + why);
    };
    if (code.empty())
        refuse("il est vide.");
    if (!text::IsPlain(code))
        refuse("il contient un caractère de contrôle ou n'est pas du texte UTF-8.");
    if (code.find('"') != std::string::npos)
        refuse("il contient un guillemet droit (\").");
}

CaregiverForm::CaregiverForm(const HostObjects& objects, const std::string& code,
                             const std::string& name, std::function<void(const Error&)> failed)
    : control_(objects.world, objects.dates, objects.help, components::makeParameters) {
    checkCode(code);
    text::RequirePlain(name, "Le nom de l'aidant");

    form_.identify("Frm_Hote");
    form_.Caption(name + " (" + code + ")");
    form_.place(ControlPlace);
    control_.identify("Ctr_Vorandine");
    control_.place(ControlPlace);
    form_.add(control_);

    control_.TheClient(objects.client);
    control_.TheDatabase(objects.database);
    control_.DroitsUtilisateur(objects.rights);
    control_.W_Code = code;
    control_.W_NomPrenom = name;
    control_.Init();

    form_.Failed = std::move(failed);
    form_.CloseButton = [this] { return pressRetour(); };
    form_.focusFirst();
}

CaregiverForm::~CaregiverForm() = default;

bool CaregiverForm::pressRetour() {
    auto* const button = widgets::as<widgets::CommandButton>(form_.find("Cmd_Retour"));
    return button != nullptr && widgets::click(*button) != widgets::Outcome::Refused;
}

} // namespace vorandine::host
