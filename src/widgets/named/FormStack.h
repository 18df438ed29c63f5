// The forms that are open, the one in front last, and the controls that are named in them.
#pragma once

#include "widgets/Form.h"

#include <string>
#include <vector>

namespace vorandine::widgets {

class FormStack {
  public:
    // `form` must outlive its stay here.
    void push(Form& form) { forms_.push_back(&form); }
    void pop() noexcept { forms_.pop_back(); }

    [[nodiscard]] bool empty() const noexcept { return forms_.empty(); }
    [[nodiscard]] bool modal() const noexcept { return forms_.size() > 1; }
    // The form in front; null if none is open.
    [[nodiscard]] Form* front() const noexcept { return forms_.empty() ? nullptr : forms_.back(); }

    // The control of that full name in the form in front. Throws std::invalid_argument if there is
    // none.
    [[nodiscard]] Control& control(const std::string& name) const;
    // The same for who would work on it: null where the control stands in a form behind.
    [[nodiscard]] Control* target(const std::string& name) const;

  private:
    std::vector<Form*> forms_;
};

} // namespace vorandine::widgets
