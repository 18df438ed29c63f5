// The forms that are open, the one in front last, and the controls that lines name in them.
#pragma once

#include "apps/scenario/LineError.h"
#include "widgets/Form.h"

#include <string>
#include <vector>

namespace vorandine::scenario {

class FormStack {
  public:
    void push(widgets::Form& form) { forms_.push_back(&form); }
    void pop() noexcept { forms_.pop_back(); }

    [[nodiscard]] bool empty() const noexcept { return forms_.empty(); }
    [[nodiscard]] bool modal() const noexcept { return forms_.size() > 1; }
    // The form in front; null if none is open.
    [[nodiscard]] widgets::Form* front() const noexcept {
        return forms_.empty() ? nullptr : forms_.back();
    }

    // The control of that name in the form in front. Throws LineError if there is none.
    [[nodiscard]] widgets::Control& control(const std::string& name) const {
        if (widgets::Control* const found = empty() ? nullptr : front()->find(name))
            return *found;
        throw LineError(empty() ? "no form is open, so there is no " + name
                                : front()->Name() + " has no control " + name);
    }

    // The same for who would work on it: null where the control stands in a form behind.
    [[nodiscard]] widgets::Control* target(const std::string& name) const {
        for (const widgets::Form* const form : forms_)
            if (form != front() && front()->find(name) == nullptr && form->find(name) != nullptr)
                return nullptr;
        return &control(name);
    }

  private:
    std::vector<widgets::Form*> forms_;
};

} // namespace vorandine::scenario
