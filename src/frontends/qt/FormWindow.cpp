// The window: built once from the form's tree, then kept in step with it.
#include "frontends/qt/FormWindow.h"

#include "frontends/qt/Colours.h"
#include "frontends/qt/Input.h"
#include "frontends/qt/ListView.h"
#include "frontends/qt/Names.h"
#include "frontends/qt/QtWorld.h"
#include "frontends/qt/ScaledStyle.h"
#include "widgets/Kinds.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QCloseEvent>
#include <QFontInfo>
#include <QRadioButton>
#include <QScreen>
#include <QScrollBar>
#include <QTabBar>
#include <QTimer>

#include <algorithm>
#include <cmath>
#include <span>
#include <utility>

namespace vorandine::qt {
namespace {

// How much of the screen a window takes at first, and how large it gets by itself.
constexpr double PartOfScreen = 0.85;
constexpr double LargestAtFirst = 1.6;
constexpr double ZoomSteps = 20; // to one

// True for as long as it lives.
class Flag {
  public:
    explicit Flag(bool& flag) : flag_(flag), before_(std::exchange(flag, true)) {}
    Flag(const Flag&) = delete;
    Flag& operator=(const Flag&) = delete;
    ~Flag() { flag_ = before_; }

  private:
    bool& flag_;
    bool before_;
};

// Whether the style's own measures show on a widget: it costs each widget more than the rest of it.
bool measures(const QWidget& part) {
    return qobject_cast<const QRadioButton*>(&part) != nullptr ||
           qobject_cast<const QScrollBar*>(&part) != nullptr ||
           qobject_cast<const QAbstractScrollArea*>(&part) != nullptr ||
           qobject_cast<const QTabBar*>(&part) != nullptr;
}

// Whether a text stands in it that is drawn paler where the control is closed.
bool holdsText(const widgets::Control& control) {
    return widgets::match(
        control, [](const widgets::ListBox& list) { return list.ListCount() > 0; },
        [](const widgets::TextField& field) { return !field.empty(); },
        [](const widgets::Control&) { return false; });
}

} // namespace

FormWindow::FormWindow(widgets::Form& form, QtWorld& world, QWidget* parent)
    : QWidget(parent, parent != nullptr ? Qt::Dialog : Qt::Window), form_(form), world_(world),
      style_(std::make_unique<ScaledStyle>(scale_)), input_(std::make_unique<Input>(*this)) {
    scale_ = Scale(suitableZoom(), logicalDpiX());
    // What is made below has the font from the start, and never asks for the one of the platform.
    setFont(scale_.font(false));
    waiting_.emplace_back(&form, this);
    buildShown();
    connect(qApp, &QApplication::focusChanged, this,
            [this](QWidget* /*before*/, QWidget* now) { focusMovedTo(now); });
    world_.enter(*this);
    setZoom(scale_.factor());
}

FormWindow::~FormWindow() {
    world_.leave(*this);
    disconnect(qApp, nullptr, this, nullptr);
    input_.reset();
    // The native widgets go before the style that they are drawn in.
    delete &views_.front()->widget();
}

void FormWindow::build(widgets::Control& control, QWidget& ground) {
    if (control.parent() != nullptr && !control.parent()->shows(control)) {
        waiting_.emplace_back(&control, &ground);
        return;
    }
    views_.push_back(makeView(control, ground));
    View& made = *views_.back();
    byControl_[&control] = &made;
    if (const auto* const container = widgets::as<widgets::Container>(&control))
        for (widgets::Control* const child : container->children())
            build(*child, made.ground(child->page()));
}

void FormWindow::buildShown() {
    const std::size_t before = views_.size();
    for (const auto& [control, ground] : std::exchange(waiting_, {}))
        build(*control, *ground);
    const auto made = std::span<const std::unique_ptr<View>>(views_).subspan(before);
    for (const auto& view : made)
        input_->listenTo(*view);
    linkTables(made);
    nameForAssistance(made);
    for (const auto& view : made) {
        const auto takeStyle = [this](QWidget& part) {
            if (measures(part) && part.style() != style_.get())
                part.setStyle(style_.get());
        };
        takeStyle(view->widget());
        for (QWidget* const part : view->widget().findChildren<QWidget*>())
            takeStyle(*part);
    }
}

QWidget* FormWindow::widgetFor(const widgets::Control& control) const {
    const auto found = byControl_.find(&control);
    return found == byControl_.end() ? nullptr : &found->second->widget();
}

widgets::Control* FormWindow::controlAt(const QPoint& place) const {
    const QWidget* const widget = childAt(place);
    const View* const view = widget != nullptr ? input_->viewOf(widget) : nullptr;
    return view != nullptr ? &view->control() : nullptr;
}

widgets::Outcome FormWindow::gesture(const std::function<widgets::Outcome()>& act) {
    ++handlers_;
    world_.begin(*this);
    const widgets::Outcome outcome = act();
    world_.end(*this);
    --handlers_;
    outcome_ = outcome;
    sync();
    return outcome;
}

void FormWindow::sync() {
    if (syncing_)
        return;
    {
        const Flag flag(syncing_);
        if (const QString title = shown(form_.Caption()); windowTitle() != title)
            setWindowTitle(title);
        if (!waiting_.empty()) {
            const std::size_t before = views_.size();
            buildShown();
            for (std::size_t i = before; i < views_.size(); ++i)
                views_[i]->layOut(scale_);
        }
        makeClosedTextLegible();
        for (const auto& view : views_)
            view->sync();
        syncFocus();
    }
    finish();
}

// Each widget of a window takes over its palette, which takes time: not before there is anything
// that needs it.
void FormWindow::makeClosedTextLegible() {
    if (closedText_)
        return;
    form_.visit([this](const widgets::Control& control) {
        closedText_ = closedText_ || (!control.Enabled() && holdsText(control));
    });
    if (closedText_)
        setPalette(withLegibleClosedText(QApplication::palette()));
}

void FormWindow::syncFocus() {
    const widgets::Control* const control = form_.focus();
    const auto found = byControl_.find(control);
    QWidget& target =
        control != nullptr && found != byControl_.end() ? found->second->focusTarget() : *this;
    if (focusWidget() == &target || (&target == this && focusWidget() == nullptr && hasFocus()))
        return;
    target.setFocus(Qt::OtherFocusReason);
    // Who works by keyboard must see where he is, however the focus came there.
    setAttribute(Qt::WA_KeyboardFocusChange);
}

// The focus has moved by a way that is none of ours, such as an assistive tool.
void FormWindow::focusMovedTo(QWidget* now) {
    if (syncing_ || handlers_ > 0 || form_.unloaded() || now == nullptr || now->window() != this ||
        !isEnabled())
        return;
    View* const view = input_->viewOf(now);
    if (view == nullptr || &view->control() == form_.focus() || !view->control().takesFocus())
        return;
    gesture([&] { return widgets::moveFocus(view->control()); });
}

bool FormWindow::focusNextPrevChild(bool next) {
    // A widget that is being disabled or hidden tries to hand its focus on.
    if (syncing_ || form_.unloaded())
        return false;
    gesture(
        [&] { return widgets::pressKey(form_, next ? widgets::Key::Tab : widgets::Key::BackTab); });
    return true;
}

void FormWindow::finish() {
    if (!form_.unloaded() || handlers_ > 0 || told_)
        return;
    told_ = true;
    hide();
    QTimer::singleShot(0, this, [this] { emit unloaded(); });
}

void FormWindow::closeEvent(QCloseEvent* event) {
    if (form_.unloaded()) {
        event->accept();
        return;
    }
    event->ignore();
    gesture([&] { return widgets::closeForm(form_); });
}

QSize FormWindow::sizeAt(double zoom) const {
    const Scale scale(zoom, logicalDpiX());
    return {scale.pixels(form_.place().width), scale.pixels(form_.place().height)};
}

double FormWindow::largestZoom() const {
    const QSize room = screen()->availableSize() - QSize(0, Decoration + headHeight_);
    const QSize whole = sizeAt(1.0);
    return std::min(static_cast<double>(room.width()) / std::max(1, whole.width()),
                    static_cast<double>(room.height()) / std::max(1, whole.height()));
}

double FormWindow::suitableZoom() const {
    if (const auto* const owner = parentWidget() != nullptr
                                      ? qobject_cast<FormWindow*>(parentWidget()->window())
                                      : nullptr)
        return std::min(owner->zoom(), largestZoom());
    const double zoom = std::min(largestZoom() * PartOfScreen, LargestAtFirst);
    return std::max(1.0, std::floor(zoom * ZoomSteps) / ZoomSteps);
}

QFont FormWindow::enlarged(QFont font) const {
    font.setPixelSize(std::max(QFontInfo(font).pixelSize(), scale_.font(false).pixelSize()));
    return font;
}

// The scale, and with it the head's.
void FormWindow::scaleTo(double zoom, int width) {
    scale_ = Scale(std::clamp(zoom, SmallestZoom, LargestZoom), logicalDpiX());
    if (head_ == nullptr)
        return;
    head_->setFont(scale_.font(false));
    const bool wraps = head_->hasHeightForWidth();
    headHeight_ = head_->isHidden() ? 0
                  : wraps           ? head_->heightForWidth(width)
                                    : head_->sizeHint().height();
}

void FormWindow::setZoom(double zoom) {
    scaleTo(zoom, width());
    const QSize form = sizeAt(scale_.factor());
    scaleTo(scale_.factor(), form.width());
    resize(form + QSize(0, headHeight_));
    layOut();
    emit zoomChanged(scale_.factor());
}

void FormWindow::setHead(QWidget& head) {
    head_ = &head;
    head.installEventFilter(this);
    followHead();
}

void FormWindow::followHead() {
    const int before = headHeight_;
    scaleTo(scale_.factor(), width());
    if (headHeight_ == before)
        return;
    if (!isMaximized() && !isFullScreen()) {
        const int room = screen()->availableSize().height() - Decoration;
        resize(width(), std::min(height() + headHeight_ - before, std::max(height(), room)));
    }
    fit();
}

bool FormWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == head_ &&
        (event->type() == QEvent::LayoutRequest || event->type() == QEvent::ShowToParent ||
         event->type() == QEvent::HideToParent))
        followHead();
    return QWidget::eventFilter(watched, event);
}

void FormWindow::layOut() {
    laidOut_ = this->size();
    // The surface stands in the middle of what the window leaves at its sides.
    for (const auto& view : views_)
        view->layOut(scale_);
    if (head_ != nullptr)
        head_->setGeometry(0, 0, width(), headHeight_);
    const QSize size = sizeAt(scale_.factor());
    const QPoint corner(std::max(0, (width() - size.width()) / 2),
                        headHeight_ + std::max(0, (height() - headHeight_ - size.height()) / 2));
    views_.front()->widget().setGeometry(QRect(corner, size));
    sync();
}

// The greatest zoom that the window has room for. The head grows with it, and takes of that room:
// each pass comes nearer, and the last one lets no part of the form fall out of the window.
void FormWindow::fit() {
    constexpr int Passes = 5;
    constexpr double Spare = 0.98;
    const QSize whole = sizeAt(1.0);
    const double before = scale_.factor();
    scaleTo(before, width());
    const auto room = [this] { return QSize(width(), height() - headHeight_); };
    for (int pass = 1; pass <= Passes && !whole.isEmpty() && room() != sizeAt(scale_.factor());
         ++pass) {
        const double fits = std::min(static_cast<double>(room().width()) / whole.width(),
                                     static_cast<double>(room().height()) / whole.height());
        if (pass < Passes)
            scaleTo(fits, width());
        else if (fits < scale_.factor())
            scaleTo(fits * Spare, width());
    }
    if (scale_.factor() != before)
        emit zoomChanged(scale_.factor());
    layOut();
}

void FormWindow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (size() != laidOut_)
        fit();
}

void FormWindow::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    sync();
}

void FormWindow::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (closedText_ && event->type() == QEvent::ApplicationPaletteChange)
        setPalette(withLegibleClosedText(QApplication::palette()));
    if (event->type() == QEvent::ActivationChange && isActiveWindow())
        sync();
}

} // namespace vorandine::qt
