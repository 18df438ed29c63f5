// The window's life: sizes remembered, errors told, the outcome read off the store.
#include "apps/desktop/CaregiverWindow.h"

#include "apps/desktop/ChangesDialog.h"
#include "apps/host/ChargesNotice.h"
#include "apps/host/SavingNotice.h"
#include "frontends/qt/ErrorDialog.h"
#include "records/StoredFiles.h"
#include "widgets/Kinds.h"

#include <QApplication>
#include <QMetaObject>
#include <QScreen>
#include <QTime>

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <utility>

namespace vorandine::desktop {
namespace {

constexpr std::chrono::seconds NewsEvery{2};
constexpr int FirstTab = 0;
constexpr int DifTab = 2;

} // namespace

CaregiverWindow::CaregiverWindow(Session& session, Settings& settings, host::Caregiver caregiver,
                                 QObject* parent)
    : QObject(parent), session_(session), settings_(settings), caregiver_(std::move(caregiver)),
      before_(stored()), news_(session.store(), caregiver_.code),
      form_(session.objects(), caregiver_.code, shownName(caregiver_).toStdString(),
            [this](const Error& error) { report(error); }),
      tabs_(*widgets::as<widgets::TabContainer>(form_.form().find("Ong_Vorandine"))),
      employers_(*widgets::as<widgets::ListBox>(form_.form().find("Lst_DifEmpl"))),
      window_(std::make_unique<qt::FormWindow>(form_.form(), session.world())),
      notices_(new NoticeStrip(*window_)) {
    window_->setObjectName("dossier");
    if (const QSize size = settings_.caregiverSize(); size.isValid())
        window_->resize(size.boundedTo(window_->screen()->availableSize()));
    opened_ = window_->size();
    tellAtOpening();
    connect(window_.get(), &qt::FormWindow::unloaded, this, [this] {
        window_->hide();
        emit ended(outcome());
    });
    connect(&newsTimer_, &QTimer::timeout, this, &CaregiverWindow::tellNews);
    newsTimer_.start(NewsEvery);
    if (settings_.caregiverMaximized())
        window_->showMaximized();
    else
        window_->show();
}

CaregiverWindow::~CaregiverWindow() {
    const bool maximized = window_->isMaximized();
    const QSize size = maximized ? window_->normalGeometry().size() : window_->size();
    // The next file has notices of its own; where these left the form too little room, it is not
    // the user who made it small.
    const int form = size.height() - window_->headHeight();
    settings_.setCaregiver(
        {size.width(), window_->headHeight() > 0 ? std::max(form, opened_.height()) : form},
        maximized);
}

void CaregiverWindow::bringToFront() {
    if (window_->isMinimized())
        window_->showNormal();
    window_->raise();
    window_->activateWindow();
}

Closing CaregiverWindow::close() {
    failed_ = false;
    if (!form_.form().unloaded()) {
        bringToFront();
        window_->close();
    }
    if (form_.form().unloaded())
        return Closing::Closed;
    return failed_ ? Closing::Failed : Closing::Stays;
}

void CaregiverWindow::tellAtOpening() {
    if (!session_.mayWrite()) {
        notices_->tell(host::consultation());
        return;
    }
    try {
        const host::HostObjects objects = session_.objects();
        host::CaregiverRecords caregiver = host::readCaregiver(objects.database, caregiver_.code);
        for (const auto& notice :
             {host::savingNotice(caregiver), host::chargesNotice(caregiver, objects.dates)})
            if (notice)
                notices_->tell(*notice);
    } catch (const Error&) {
        // The control tells what cannot be read as soon as it is needed.
    }
}

void CaregiverWindow::tellNews() {
    if (!window_->isActiveWindow())
        return;
    const std::size_t before = news_.told().size();
    // From the event loop: the notice is replaced by later ones, not while its button is pressed.
    const auto press = [this] {
        QMetaObject::invokeMethod(this, &CaregiverWindow::showWhatChanged, Qt::QueuedConnection);
    };
    const std::vector<widgets::Told> news = news_.ask();
    const auto ofHours = [](const host::OtherChange& change) {
        return change.file == records::ledger::File;
    };
    const auto first = news_.told().begin() + static_cast<std::ptrdiff_t>(before);
    const host::NewsOf what = std::all_of(first, news_.told().end(), ofHours)
                                  ? host::NewsOf::HoursAlone
                                  : host::NewsOf::File;
    for (const widgets::Told& told : news)
        notices_->tell(host::news(told, what, session_.mayWrite()), press);
    if (std::any_of(first, news_.told().end(), ofHours))
        oldEmployers_ = employers_.revision();
    offerEmployers();
}

// Whoever comes to the tab is shown what is stored by then; while a line is open, nothing can be
// read anew.
void CaregiverWindow::offerEmployers() {
    if (tabs_.Tab() != DifTab || oldEmployers_ != employers_.revision())
        oldEmployers_.reset();
    const bool shown = window_->findChild<QWidget*>("employers") != nullptr;
    const bool offered = oldEmployers_ && tabs_.TabEnabled(FirstTab);
    if (offered && !shown)
        notices_->tell(host::employersChanged(), [this] {
            QMetaObject::invokeMethod(this, &CaregiverWindow::rereadEmployers,
                                      Qt::QueuedConnection);
        });
    else if (!offered && shown)
        notices_->withdraw("employers");
}

// As who goes to another tab and comes back.
void CaregiverWindow::rereadEmployers() {
    window_->gesture([this] {
        const widgets::Outcome left = widgets::showTab(tabs_, FirstTab);
        return left == widgets::Outcome::Done ? widgets::showTab(tabs_, DifTab) : left;
    });
    offerEmployers();
}

void CaregiverWindow::showWhatChanged() {
    try {
        showChanges(*window_, host::newsInWords(session_.store(), caregiver_.code, news_.told(),
                                                session_.objects().dates));
    } catch (const Error& error) {
        report(error);
    }
}

void CaregiverWindow::report(const Error& error) {
    failed_ = true;
    // The handler that failed is still on its way out: a dialog now would run inside it. A modal
    // form that stays open has the dialog over it.
    const auto show = [this, error] {
        QWidget* const modal = QApplication::activeModalWidget();
        qt::showError(modal != nullptr ? modal : window_.get(), error);
    };
    QMetaObject::invokeMethod(this, show, Qt::QueuedConnection);
}

void CaregiverWindow::tell(const widgets::Told& told) {
    told_ = told.text + (told.when.empty() ? "" : " (" + told.when + ")");
}

Situation CaregiverWindow::outcome() {
    const QString time = QTime::currentTime().toString("HH:mm");
    try {
        const host::News::Own own = session_.caregivers().content(caregiver_.code) == before_
                                        ? host::News::Own::Nothing
                                        : news_.own();
        if (own == host::News::Own::File)
            return {"Enregistré à " + time + (told_.empty() ? "" : ", réuni avec un autre poste"),
                    QString::fromUtf8(told_)};
        if (own == host::News::Own::HoursAlone)
            return {"Heures D.I.F. enregistrées à " + time,
                    "Le reste du dossier est tel qu'il était."};
    } catch (const Error& error) {
        return {"Fermé à " + time + ", état inconnu",
                "Le dossier n'a pas pu être relu : " + QString::fromUtf8(error.what())};
    }
    if (form_.control().W_Sortir == 0)
        return {"Interrompu à " + time, "Le dossier a été fermé sans passer par ses boutons."};
    return {"Fermé à " + time + ", rien de changé", {}};
}

std::optional<std::string> CaregiverWindow::stored() {
    try {
        return session_.caregivers().content(caregiver_.code);
    } catch (const Error&) {
        // The control meets the same error and shows a new file; the store then refuses to write.
        return std::nullopt;
    }
}

} // namespace vorandine::desktop
