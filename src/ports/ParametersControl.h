// The parameters control, as the form that adds training labels asks for it: a control that lets
// the user maintain one table of the file TABLES.
#pragma once

#include "ports/Database.h"
#include "ports/Rights.h"

#include <functional>
#include <memory>
#include <string>

namespace vorandine::widgets {
class UserControl;
} // namespace vorandine::widgets

namespace vorandine::ports {

// What the control asks of the form that it stands on.
class ParametersHost {
  public:
    ParametersHost() = default;
    ParametersHost(const ParametersHost&) = delete;
    ParametersHost& operator=(const ParametersHost&) = delete;
    virtual ~ParametersHost() = default;

    // The form takes `Texte` as its caption and becomes as wide as its first control needs.
    virtual void AdapteExe(const std::string& Texte) = 0;
    // A message that tells what is wrong, with an OK button.
    virtual void refuse(const std::string& text) = 0;
    // A question. Whether the answer was Yes.
    [[nodiscard]] virtual bool confirm(const std::string& text) = 0;
};

// The five inputs are set first, then Init_Param is called, once, with the control on its form.
class ParametersControl {
  public:
    ParametersControl() = default;
    ParametersControl(const ParametersControl&) = delete;
    ParametersControl& operator=(const ParametersControl&) = delete;
    virtual ~ParametersControl() = default;

    // The control as a widget, to be placed on the form; lives as long as this.
    [[nodiscard]] virtual widgets::UserControl& surface() noexcept = 0;

    std::shared_ptr<DBADatabase> TheDatabase;
    std::shared_ptr<DBAClient> TheClient;
    std::string Table_Param; // the key of the record to maintain, in the file TABLES
    std::string Titre_Param; // heads the screen
    std::shared_ptr<DroitsUtilisateur> DroitsParam;

    // Shows the table. Throws what reading it throws.
    virtual void Init_Param() = 0;

    // Whether the form may be unloaded: what the user has changed is stored, or given up. The
    // control unloads the form itself.
    bool Sortie_Param = false;
};

// Makes one for a form. `host` must outlive it.
using MakeParameters = std::function<std::unique_ptr<ParametersControl>(ParametersHost& host)>;

} // namespace vorandine::ports
