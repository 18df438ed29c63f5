// Looking a name up in the form in front, and in those behind it.
#include "widgets/named/FormStack.h"

#include <stdexcept>

namespace vorandine::widgets {

Control& FormStack::control(const std::string& name) const {
    if (Control* const found = empty() ? nullptr : front()->find(name))
        return *found;
    throw std::invalid_argument(empty() ? "no form is open, so there is no " + name
                                        : front()->Name() + " has no control " + name);
}

Control* FormStack::target(const std::string& name) const {
    for (const Form* const form : forms_)
        if (form != front() && front()->find(name) == nullptr && form->find(name) != nullptr)
            return nullptr;
    return &control(name);
}

} // namespace vorandine::widgets
