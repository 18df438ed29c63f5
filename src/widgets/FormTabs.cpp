// Looks for the tabs in the form's tree.
#include "widgets/FormTabs.h"

#include "widgets/Kinds.h"

namespace vorandine::widgets {

TabContainer* tabsOf(const Form& form) {
    TabContainer* tabs = nullptr;
    form.visit([&](Control& control) {
        if (tabs == nullptr)
            tabs = as<TabContainer>(&control);
    });
    return tabs;
}

} // namespace vorandine::widgets
