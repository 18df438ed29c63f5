// A window that mirrors one form. The form's controls hold the truth: native events become gestures
// (widgets/Gestures.h), and sync() then shows what has become of the controls.
#pragma once

#include "frontends/qt/Scale.h"
#include "widgets/Gestures.h"

#include <QWidget>

#include <functional>
#include <memory>
#include <optional>
#include <unordered_map>
#include <utility>
#include <vector>

namespace vorandine::qt {

class Input;
class QtWorld;
class View;

class FormWindow : public QWidget {
    Q_OBJECT

  public:
    // `form`, its controls and `world` must outlive the window; controls added to the form later
    // are not shown. The window opens at a size that suits the screen and is not shown yet.
    FormWindow(widgets::Form& form, QtWorld& world, QWidget* parent = nullptr);
    FormWindow(const FormWindow&) = delete;
    FormWindow& operator=(const FormWindow&) = delete;
    // The form stays as it is.
    ~FormWindow() override;

    [[nodiscard]] widgets::Form& form() const noexcept { return form_; }

    // Shows the state that the form and its controls have now; cheap when little has changed. Runs
    // by itself after each gesture, and before a message box or a modal form of the same world;
    // call it after changing controls from elsewhere.
    void sync();

    // 1.0: the form's places at 96 dots to the inch, times the scaling of the screen. Setting it
    // resizes the window; resizing the window sets it. Held between 0.5 and 5.
    [[nodiscard]] double zoom() const noexcept { return scale_.factor(); }
    void setZoom(double zoom);
    // The greatest zoom at which the window fits on its screen.
    [[nodiscard]] double largestZoom() const;

    // `head`, a child of this window, stands above the form, as wide as the window and as high as
    // it asks for, and grows with the rest. It pushes the form down: the window grows with it where
    // the screen has room. The form keeps the focus.
    void setHead(QWidget& head);
    // 0 without a head, and while it is hidden.
    [[nodiscard]] int headHeight() const noexcept { return headHeight_; }

    // `font` at least as large as the text on the window: for boxes and menus that open over it.
    [[nodiscard]] QFont enlarged(QFont font) const;

    // The native widget of a control of the form; null for what is none of them, and for what
    // stands on a tab that has not been in front yet.
    [[nodiscard]] QWidget* widgetFor(const widgets::Control& control) const;
    // The control that a press at this place of the window falls on, enabled or not; null for none.
    [[nodiscard]] widgets::Control* controlAt(const QPoint& place) const;

    // One gesture: runs it, then sync(). Its outcome is kept until the next one.
    widgets::Outcome gesture(const std::function<widgets::Outcome()>& act);
    // What came of the last gesture since forgetOutcome(); empty if there was none.
    [[nodiscard]] std::optional<widgets::Outcome> lastOutcome() const noexcept { return outcome_; }
    void forgetOutcome() noexcept { outcome_.reset(); }
    [[nodiscard]] bool syncing() const noexcept { return syncing_; }
    [[nodiscard]] QtWorld& world() const noexcept { return world_; }

  signals:
    // Once, from the event loop, when the form was unloaded and no handler of it runs any more:
    // now the form and the window can be destroyed.
    void unloaded();
    void zoomChanged(double zoom);

  protected:
    bool focusNextPrevChild(bool next) override;
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void build(widgets::Control& control, QWidget& ground);
    void buildShown();
    void layOut();
    void fit();
    void scaleTo(double zoom, int width);
    void followHead();
    void makeClosedTextLegible();
    void syncFocus();
    void focusMovedTo(QWidget* now);
    void finish();
    [[nodiscard]] QSize sizeAt(double zoom) const;
    [[nodiscard]] double suitableZoom() const;

    widgets::Form& form_;
    QtWorld& world_;
    Scale scale_;
    std::unique_ptr<QStyle> style_;
    std::unique_ptr<Input> input_;
    std::vector<std::unique_ptr<View>> views_; // parents before what stands in them
    std::unordered_map<const widgets::Control*, View*> byControl_;
    // On tabs that have not come to the front yet, and where they will stand. Most files are opened
    // for one tab.
    std::vector<std::pair<widgets::Control*, QWidget*>> waiting_;
    std::optional<widgets::Outcome> outcome_;
    QWidget* head_ = nullptr;
    int headHeight_ = 0;
    QSize laidOut_;           // the size of the window at that time
    int handlers_ = 0;        // gestures under way
    bool closedText_ = false; // something closed shows text, or did
    bool syncing_ = false;
    bool told_ = false; // that the form was unloaded
};

} // namespace vorandine::qt
