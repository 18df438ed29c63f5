// Finding the label that belongs to a field from the places alone.
#include "frontends/qt/Names.h"

#include "widgets/Kinds.h"

#include <QLabel>
#include <QStringList>

#include <algorithm>

namespace vorandine::qt {
namespace {

using widgets::Control;
using widgets::Label;
using widgets::Place;

// How much of a row two controls must share, and how far apart rows may stand, in twips.
constexpr int Overlap = 60;

bool rowsMeet(const Place& a, const Place& b) {
    return std::min(a.top + a.height, b.top + b.height) - std::max(a.top, b.top) >= Overlap;
}

bool columnsMeet(const Place& a, const Place& b) {
    return std::min(a.left + a.width, b.left + b.width) - std::max(a.left, b.left) >= Overlap;
}

template <typename Visit>
void siblings(const Control& control, Visit visit) {
    if (control.parent() != nullptr)
        for (const Control* const other : control.parent()->children())
            if (other != &control && other->page() == control.page())
                visit(*other);
}

// The nearest control to the left, if it is a label.
const Label* labelBefore(const Control& control) {
    const Place& own = control.place();
    const Control* nearest = nullptr;
    siblings(control, [&](const Control& other) {
        if (rowsMeet(own, other.place()) && other.place().left < own.left &&
            (nearest == nullptr || other.place().left > nearest->place().left))
            nearest = &other;
    });
    return widgets::as<Label>(nearest);
}

// All labels of the nearest row above that has some over the control.
std::vector<const Label*> labelsAbove(const Control& control) {
    const Place& own = control.place();
    std::vector<const Label*> above;
    siblings(control, [&](const Control& other) {
        const auto* const label = widgets::as<Label>(&other);
        // A notice tells of what happened, not of what stands below it.
        if (label == nullptr || label->notice() || !columnsMeet(own, label->place()) ||
            label->place().top + label->place().height > own.top)
            return;
        if (!above.empty() && label->place().top > above.front()->place().top)
            above.clear();
        if (above.empty() || label->place().top == above.front()->place().top)
            above.push_back(label);
    });
    std::sort(above.begin(), above.end(),
              [](const Label* a, const Label* b) { return a->place().left < b->place().left; });
    return above;
}

QString bare(const std::string& caption) {
    QString text = shown(caption).trimmed();
    while (text.endsWith(':'))
        text = text.chopped(1).trimmed();
    return text;
}

// The caption of the nearest container around that has one.
QString surroundings(const Control& control) {
    int page = control.page();
    for (const widgets::Container* around = control.parent(); around != nullptr;
         page = around->page(), around = around->parent()) {
        if (const auto* const frame = widgets::as<widgets::Frame>(around))
            return bare(frame->Caption());
        const auto* const tabs = widgets::as<widgets::TabContainer>(around);
        if (tabs != nullptr && page >= 0 && page < static_cast<int>(tabs->captions().size()))
            return bare(tabs->captions()[static_cast<std::size_t>(page)]);
    }
    return {};
}

QString nameOf(const Control& control) {
    if (!control.hint().empty())
        return shown(control.hint());
    if (const Label* const label = labelBefore(control))
        return bare(label->Caption());
    QStringList above;
    for (const Label* const label : labelsAbove(control))
        above << bare(label->Caption());
    QString name = above.isEmpty() ? surroundings(control) : above.join(QStringLiteral(", "));
    if (control.Index() >= 0)
        name += QStringLiteral(" %1").arg(control.Index() + 1);
    return name;
}

// On this platform a combo box is named by its label alone, whatever name it is given.
void makeBuddy(std::span<const std::unique_ptr<View>> views, View& combo) {
    const Label* label = labelBefore(combo.control());
    if (const auto above = labelsAbove(combo.control()); label == nullptr && above.size() == 1)
        label = above.front();
    for (const auto& view : views)
        if (label != nullptr && &view->control() == label)
            static_cast<QLabel&>(view->widget()).setBuddy(&combo.widget());
}

} // namespace

void nameForAssistance(std::span<const std::unique_ptr<View>> views) {
    for (const auto& view : views) {
        const Control& control = view->control();
        if (!control.takesFocus() || widgets::as<widgets::Captioned>(&control) != nullptr)
            continue;
        const QString name = nameOf(control);
        for (QWidget* const source : view->sources())
            source->setAccessibleName(name);
        if (widgets::as<widgets::ComboBox>(&control) != nullptr)
            makeBuddy(views, *view);
    }
}

} // namespace vorandine::qt
