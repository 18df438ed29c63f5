// One list a kind. Nothing is read before it is asked for: a list may have thousands of lines.
#include "widgets/named/Properties.h"

#include "widgets/Kinds.h"

#include <cstddef>

namespace vorandine::widgets {
namespace {

using Properties = std::vector<Property>;

template <typename Listed>
std::vector<std::string> lines(const Listed& list) {
    std::vector<std::string> all;
    all.reserve(static_cast<std::size_t>(list.ListCount()));
    for (int i = 0; i < list.ListCount(); ++i)
        all.push_back(list.List(i));
    return all;
}

std::vector<int> selected(const ListBox& list) {
    std::vector<int> all;
    for (int i = 0; i < list.ListCount(); ++i)
        if (list.Selected(i))
            all.push_back(i);
    return all;
}

std::vector<bool> openTabs(const TabContainer& tabs) {
    std::vector<bool> all;
    for (std::size_t tab = 0; tab < tabs.captions().size(); ++tab)
        all.push_back(tabs.TabEnabled(static_cast<int>(tab)));
    return all;
}

template <typename Titled>
Property caption(const Titled& titled) {
    return {"Caption", [&] { return titled.Caption(); }};
}

Property text(const TextField& field) {
    return {"Text", [&] { return field.Text(); }};
}

Properties own(const Captioned& captioned) {
    return {caption(captioned)};
}

Properties own(const Frame& frame) {
    return {caption(frame)};
}

Properties own(const OptionButton& option) {
    return {caption(option), {"Value", [&] { return option.Value(); }}};
}

Properties own(const ScrollBar& bar) {
    return {{"Max", [&] { return bar.Max(); }}, {"Value", [&] { return bar.Value(); }}};
}

Properties own(const TextBox& box) {
    return {text(box)};
}

Properties own(const ComboBox& combo) {
    return {text(combo),
            {"ListIndex", [&] { return combo.ListIndex(); }},
            {"ListCount", [&] { return combo.ListCount(); }},
            {"List", [&] { return lines(combo); }}};
}

Properties own(const ListBox& list) {
    return {{"ListIndex", [&] { return list.ListIndex(); }},
            {"ListCount", [&] { return list.ListCount(); }},
            {"List", [&] { return lines(list); }},
            {"Selected", [&] { return selected(list); }}};
}

Properties own(const TabContainer& tabs) {
    return {{"Tab", [&] { return tabs.Tab(); }}, {"TabEnabled", [&] { return openTabs(tabs); }}};
}

Properties own(const Surface& surface) {
    return {{"MousePointer", [&] { return surface.MousePointer(); }}};
}

} // namespace

Properties properties(const Control& control) {
    Properties all = match(control, [](const auto& kind) { return own(kind); });
    all.push_back({"Enabled", [&] { return control.Enabled(); }});
    all.push_back({"Visible", [&] { return control.Visible(); }});
    return all;
}

} // namespace vorandine::widgets
