// One caregiver's form: a form of the host with the control on it, ready for the user.
#pragma once

#include "control/Ctr_Vorandine.h"

#include <functional>
#include <memory>
#include <string>

namespace vorandine::host {

// What the host hands in. `world`, `dates` and `help` must outlive the form; the rest is shared.
struct HostObjects {
    widgets::World& world;
    ports::DateObject& dates;
    ports::HelpObject& help;
    std::shared_ptr<ports::DBAClient> client;
    std::shared_ptr<ports::DBADatabase> database;
    std::shared_ptr<ports::DroitsUtilisateur> rights;
};

// Throws Error(CodeRefused), in French and with the reason, for a code that can't be a key and a
// part of a request: an empty one, one with a double quote, one that is no plain text.
void checkCode(const std::string& code);

// The form `Frm_Hote`, the control as `Ctr_Vorandine` on it. It must not be destroyed while a
// gesture runs: its owner looks at form().unloaded() after each one.
class CaregiverForm {
  public:
    // Calls Init and gives the focus to the first control. `failed` hears of each error that a
    // gesture met, as widgets::Form::Failed does. Throws what checkCode does, Error(TextRefused)
    // for a name that is no plain text, and what the control's Init throws.
    CaregiverForm(const HostObjects& objects, const std::string& code, const std::string& name,
                  std::function<void(const Error&)> failed);
    CaregiverForm(const CaregiverForm&) = delete;
    CaregiverForm& operator=(const CaregiverForm&) = delete;
    // Destroys the control, then the form, whether it was unloaded or not.
    ~CaregiverForm();

    [[nodiscard]] widgets::Form& form() noexcept { return form_; }
    [[nodiscard]] control::Ctr_Vorandine& control() noexcept { return control_; }

  private:
    widgets::Form form_;
    control::Ctr_Vorandine control_;

    // The window's own close button: a press on Cmd_Retour. False where it can't be pressed.
    bool pressRetour();
};

} // namespace vorandine::host
