// One caregiver's file in a window of its own, from opening to what became of it.
#pragma once

#include "apps/desktop/CaregiverModel.h"
#include "apps/desktop/NoticeStrip.h"
#include "apps/desktop/Session.h"
#include "apps/desktop/Settings.h"
#include "apps/host/News.h"
#include "frontends/qt/FormWindow.h"

#include <QObject>
#include <QTimer>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace vorandine::desktop {

// What became of an attempt to close a file: it is closed, its user stays in it, or it met an
// error, which is told.
enum class Closing { Closed, Stays, Failed };

class CaregiverWindow : public QObject {
    Q_OBJECT
  public:
    // Opens the file and shows the window. `session` and `settings` must outlive this object.
    // Throws what host::CaregiverForm throws.
    CaregiverWindow(Session& session, Settings& settings, host::Caregiver caregiver,
                    QObject* parent = nullptr);
    ~CaregiverWindow() override;

    [[nodiscard]] const host::Caregiver& caregiver() const noexcept { return caregiver_; }
    void bringToFront();
    [[nodiscard]] bool shows(const widgets::Form& form) { return &form == &form_.form(); }
    // What the control has to tell of the file as it is stored: by then it is about to close.
    void tell(const widgets::Told& told);
    [[nodiscard]] const std::string& told() const noexcept { return told_; }
    // As the window's own close button.
    Closing close();

  signals:
    // The file was closed, and this object may be destroyed once control is back in the event
    // loop. Emitted once.
    void ended(const vorandine::desktop::Situation& situation);

  private:
    Session& session_;
    Settings& settings_;
    host::Caregiver caregiver_;
    std::optional<std::string> before_; // the stored file as it was opened
    host::News news_;                   // of the file as it was opened
    host::CaregiverForm form_;
    widgets::TabContainer& tabs_; // the control's, as the next
    const widgets::ListBox& employers_;
    // Goes before the form that it shows.
    std::unique_ptr<qt::FormWindow> window_;
    QTimer newsTimer_;
    NoticeStrip* notices_; // the window's
    std::string told_;
    bool failed_ = false; // the attempt to close it that is under way
    // The list of employers, as it was when another seat changed hours; none: it is up to date.
    std::optional<std::uint64_t> oldEmployers_;
    QSize opened_; // the window's, without its head

    void tellAtOpening();
    // Tells what other seats have stored, if somebody is here to see it.
    void tellNews();
    // Offers the list of employers anew, for as long as it stands in front and is an old one.
    void offerEmployers();
    void rereadEmployers();
    void showWhatChanged();
    void report(const Error& error);
    [[nodiscard]] Situation outcome();
    // The stored text; none if there is no record, and as long as it can't be read.
    [[nodiscard]] std::optional<std::string> stored();
};

} // namespace vorandine::desktop
