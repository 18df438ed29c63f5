// One table: name of a property, kind of control, how to read it.
#include "apps/scenario/Properties.h"

#include "apps/scenario/LineError.h"
#include "control/Ctr_Vorandine.h"
#include "widgets/ListBox.h"
#include "widgets/Simple.h"
#include "widgets/TextField.h"

#include <functional>
#include <optional>
#include <utility>

namespace vorandine::scenario {
namespace {

using nlohmann::json;

// Gives no value where the control is of another kind.
using Reader = std::function<std::optional<json>(const widgets::Control&)>;

template <typename Kind, typename Read>
std::pair<const std::string, Reader> row(std::string name, Read read) {
    return {std::move(name), [read](const widgets::Control& control) -> std::optional<json> {
                const auto* const kind = dynamic_cast<const Kind*>(&control);
                return kind != nullptr ? std::optional<json>(read(*kind)) : std::nullopt;
            }};
}

template <typename Kind>
json lines(const Kind& list) {
    json all = json::array();
    for (int i = 0; i < list.ListCount(); ++i)
        all.push_back(list.List(i));
    return all;
}

json selected(const widgets::ListBox& list) {
    json all = json::array();
    for (int i = 0; i < list.ListCount(); ++i)
        if (list.Selected(i))
            all.push_back(i);
    return all;
}

json openTabs(const widgets::TabContainer& tabs) {
    json all = json::array();
    for (std::size_t tab = 0; tab < tabs.captions().size(); ++tab)
        all.push_back(tabs.TabEnabled(static_cast<int>(tab)));
    return all;
}

const std::multimap<std::string, Reader>& table() {
    using namespace widgets;
    using control::Ctr_Vorandine;
    static const std::multimap<std::string, Reader> rows{
        row<Control>("Enabled", [](const auto& c) { return c.Enabled(); }),
        row<Control>("Visible", [](const auto& c) { return c.Visible(); }),
        row<TextField>("Text", [](const auto& c) { return c.Text(); }),
        row<Captioned>("Caption", [](const auto& c) { return c.Caption(); }),
        row<Frame>("Caption", [](const auto& c) { return c.Caption(); }),
        row<ListBox>("ListIndex", [](const auto& c) { return c.ListIndex(); }),
        row<ListBox>("ListCount", [](const auto& c) { return c.ListCount(); }),
        row<ListBox>("List", lines<ListBox>),
        row<ListBox>("Selected", selected),
        row<ComboBox>("ListIndex", [](const auto& c) { return c.ListIndex(); }),
        row<ComboBox>("ListCount", [](const auto& c) { return c.ListCount(); }),
        row<ComboBox>("List", lines<ComboBox>),
        row<ScrollBar>("Max", [](const auto& c) { return c.Max(); }),
        row<ScrollBar>("Value", [](const auto& c) { return c.Value(); }),
        row<OptionButton>("Value", [](const auto& c) { return c.Value(); }),
        row<TabContainer>("Tab", [](const auto& c) { return c.Tab(); }),
        row<TabContainer>("TabEnabled", openTabs),
        row<UserControl>("MousePointer", [](const auto& c) { return c.MousePointer(); }),
        row<Ctr_Vorandine>("W_Sortir", [](const auto& c) { return c.W_Sortir; }),
        row<Ctr_Vorandine>("W_Code", [](const auto& c) { return c.W_Code; }),
        row<Ctr_Vorandine>("W_NomPrenom", [](const auto& c) { return c.W_NomPrenom; }),
    };
    return rows;
}

} // namespace

json property(const widgets::Control& control, const std::string& name) {
    const auto [first, last] = table().equal_range(name);
    for (auto reader = first; reader != last; ++reader)
        if (std::optional<json> value = reader->second(control))
            return *std::move(value);
    throw LineError(control.fullName() + " has no property " + name);
}

} // namespace vorandine::scenario
