// What the two modal forms of the D.I.F. share: only their own buttons end them, and each asks for
// the rights of its own part of the application.
#pragma once

#include "ports/Rights.h"
#include "widgets/Form.h"

#include <memory>
#include <string>
#include <utility>

namespace vorandine::dif {

class ButtonClosedForm : public widgets::Form {
  public:
    // Keeps the rights object and asks it for those of this form; what it throws goes through.
    void DroitsUtilisateur(const std::shared_ptr<ports::DroitsUtilisateur>& rights) {
        droitsUtilisateur_ = rights;
        droitsModule_ = rights->Droits(rightsKey_);
    }

  protected:
    explicit ButtonClosedForm(std::string rightsKey) : rightsKey_(std::move(rightsKey)) {
        QueryUnload = [this](bool& cancel) { cancel = !W_Fermer_; };
    }
    void end() {
        W_Fermer_ = true;
        Unload();
    }

  private:
    std::string rightsKey_;
    std::shared_ptr<ports::DroitsUtilisateur> droitsUtilisateur_;
    std::shared_ptr<ports::DroitsModule> droitsModule_;
    bool W_Fermer_ = false;
};

} // namespace vorandine::dif
