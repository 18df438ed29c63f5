// The parameters control, as the form that adds training labels asks for it: a control that lets
// the user maintain one table of the file TABLES.
#pragma once

#include "data/DBAFile.h"
#include "data/Rights.h"
#include "widgets/Form.h"

#include <functional>
#include <memory>
#include <string>

namespace vorandine::trainings {

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
class ParametersControl : public widgets::UserControl {
  public:
    std::shared_ptr<data::DBADatabase> TheDatabase;
    std::shared_ptr<data::DBAClient> TheClient;
    std::string Table_Param; // the key of the record to maintain, in the file TABLES
    std::string Titre_Param; // heads the screen
    std::shared_ptr<data::DroitsUtilisateur> DroitsParam;

    // Shows the table. Throws what reading it throws.
    virtual void Init_Param() = 0;

    // Whether the form may be unloaded: what the user has changed is stored, or given up. The
    // control unloads the form itself.
    bool Sortie_Param = false;
};

// Makes one for a form. `host` must outlive it.
using MakeParameters = std::function<std::unique_ptr<ParametersControl>(ParametersHost& host)>;

} // namespace vorandine::trainings
