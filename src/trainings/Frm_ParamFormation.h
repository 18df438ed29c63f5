// The modal form in which a training label is added: nothing but the parameters control, which
// alone can end it.
#pragma once

#include "ports/ParametersControl.h"
#include "widgets/Form.h"
#include "widgets/World.h"

#include <memory>
#include <string>

namespace vorandine::trainings {

class Frm_ParamFormation : public widgets::Form, public ports::ParametersHost {
  public:
    // `world` must outlive the form. What `make` throws goes through.
    Frm_ParamFormation(const ports::MakeParameters& make, widgets::World& world);

    [[nodiscard]] ports::ParametersControl& Ctr_Galvarde() noexcept { return *Ctr_Galvarde_; }

    void AdapteExe(const std::string& Texte) override;
    void refuse(const std::string& text) override;
    [[nodiscard]] bool confirm(const std::string& text) override;

  private:
    widgets::World& world_;
    std::unique_ptr<ports::ParametersControl> Ctr_Galvarde_;
};

} // namespace vorandine::trainings
