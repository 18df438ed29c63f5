// The keyboard goes round between search field and list; the windows opened are kept by code.
#include "apps/desktop/MainWindow.h"

#include "apps/desktop/Attempt.h"
#include "apps/desktop/CaregiverWindow.h"
#include "apps/desktop/NewCaregiverDialog.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QStatusBar>
#include <QTreeView>
#include <QVBoxLayout>

#include <exception>
#include <vector>

namespace vorandine::desktop {
namespace {

// The hourglass for as long as it lives.
class Waiting {
  public:
    Waiting() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    Waiting(const Waiting&) = delete;
    Waiting& operator=(const Waiting&) = delete;
    ~Waiting() { QApplication::restoreOverrideCursor(); }
};

QString counted(int count) {
    return QString::number(count) + (count > 1 ? " aidants" : " aidant");
}

} // namespace

MainWindow::MainWindow(Session& session, Settings& settings)
    : session_(session), settings_(settings), search_(new QLineEdit), list_(new QTreeView),
      count_(new QLabel) {
    setObjectName("liste");
    setWindowTitle("Aidants (" + QString::fromStdString(session.user().name) + ")");
    layOut();
    makeMenus();
    connect(search_, &QLineEdit::textChanged, this, &MainWindow::searched);
    connect(list_, &QTreeView::activated, this, &MainWindow::openCurrent);
    search_->installEventFilter(this);
    list_->installEventFilter(this);

    session_.world().tellBy([this](const widgets::Form& form, const widgets::Told& told) {
        for (const auto& [code, window] : windows_)
            if (window->shows(form))
                window->tell(told);
    });

    model_.assign(session_.caregivers().all());
    selectSome();
    showCount();
    search_->setFocus();
}

void MainWindow::layOut() {
    search_->setObjectName("recherche");
    search_->setPlaceholderText("Code ou nom");
    search_->setClearButtonEnabled(true);
    auto* const label = new QLabel("&Rechercher :");
    label->setBuddy(search_);

    list_->setObjectName("aidants");
    list_->setAccessibleName("Aidants");
    list_->setModel(&filter_);
    list_->setRootIsDecorated(false);
    list_->setUniformRowHeights(true);
    list_->setAllColumnsShowFocus(true);
    list_->setAlternatingRowColors(true);
    list_->setSortingEnabled(true);
    QHeaderView& header = *list_->header();
    header.setStretchLastSection(false);
    if (!header.restoreState(settings_.listColumns()))
        list_->sortByColumn(CaregiverModel::Name, Qt::AscendingOrder);
    header.setSectionResizeMode(CaregiverModel::Code, QHeaderView::ResizeToContents);
    header.setSectionResizeMode(CaregiverModel::Name, QHeaderView::Stretch);
    header.setSectionResizeMode(CaregiverModel::Status, QHeaderView::ResizeToContents);
    header.setSectionsMovable(false);

    count_->setObjectName("nombre");
    count_->setTextFormat(Qt::PlainText);

    auto* const top = new QHBoxLayout;
    top->addWidget(label);
    top->addWidget(search_);
    auto* const bottom = new QHBoxLayout;
    bottom->addWidget(count_, 1);

    auto* const centre = new QWidget;
    auto* const layout = new QVBoxLayout(centre);
    layout->addLayout(top);
    layout->addWidget(list_);
    layout->addLayout(bottom);
    const auto button = [&](const QString& text, void (MainWindow::*press)()) {
        auto* const made = new QPushButton(text);
        made->setAutoDefault(true);
        connect(made, &QPushButton::clicked, this, press);
        bottom->addWidget(made);
        return made;
    };
    button("&Ouvrir", &MainWindow::openCurrent)->setObjectName("ouvrir");
    QPushButton* const add = button("&Nouvel aidant…", &MainWindow::addCaregiver);
    add->setObjectName("nouveau");
    if (!session_.mayWrite()) {
        add->setEnabled(false);
        add->setToolTip("Vos droits permettent de consulter les dossiers, pas d'en créer.");
    }
    setCentralWidget(centre);
    if (!restoreGeometry(settings_.listGeometry()))
        resize(640, 560);
}

void MainWindow::makeMenus() {
    const auto add = [this](QMenu& menu, const QString& text, const QKeySequence& keys,
                            const auto& act) {
        QAction* const action = menu.addAction(text);
        action->setShortcut(keys);
        connect(action, &QAction::triggered, this, act);
        return action;
    };
    QMenu& file = *menuBar()->addMenu("&Fichier");
    add(file, "&Ouvrir le dossier", QKeySequence("Ctrl+O"), &MainWindow::openCurrent);
    QAction* const create =
        add(file, "&Nouvel aidant…", QKeySequence::New, &MainWindow::addCaregiver);
    create->setEnabled(session_.mayWrite());
    file.addSeparator();
    add(file, "&Quitter", QKeySequence("Ctrl+Q"), &MainWindow::close);

    QMenu& view = *menuBar()->addMenu("&Affichage");
    const auto sorted = [this](CaregiverModel::Column column) {
        return [this, column] { list_->sortByColumn(column, Qt::AscendingOrder); };
    };
    add(view, "Trier par &code", QKeySequence("Ctrl+1"), sorted(CaregiverModel::Code));
    add(view, "Trier par &nom", QKeySequence("Ctrl+2"), sorted(CaregiverModel::Name));
    add(view, "Trier par &situation", QKeySequence("Ctrl+3"), sorted(CaregiverModel::Status));
    view.addSeparator();
    add(view, "&Rechercher", QKeySequence::Find, [this] {
        search_->setFocus(Qt::ShortcutFocusReason);
        search_->selectAll();
    });
    add(view, "Re&lire la liste", QKeySequence("F5"), &MainWindow::reload);

    QMenu& help = *menuBar()->addMenu("Aid&e");
    add(help, "À &propos de Vorandine", {}, &MainWindow::about);
}

void MainWindow::open(const host::Caregiver& caregiver) {
    if (const auto found = windows_.find(caregiver.code); found != windows_.end()) {
        found->second->bringToFront();
        return;
    }
    CaregiverWindow* window = nullptr;
    try {
        const Waiting waiting;
        window = new CaregiverWindow(session_, settings_, caregiver, this);
    } catch (const std::exception& error) {
        model_.setSituation(caregiver.code,
                            {"Erreur à l'ouverture", QString::fromUtf8(error.what())});
        throw;
    }
    windows_[caregiver.code] = window;
    if (auto* const told = findChild<QStatusBar*>())
        told->clearMessage();
    connect(window, &CaregiverWindow::ended, this,
            [this, window](const Situation& situation) { ended(*window, situation); });
    model_.setSituation(caregiver.code, {"Ouvert", {}});
}

void MainWindow::ended(CaregiverWindow& window, const Situation& situation) {
    windows_.erase(window.caregiver().code);
    model_.setSituation(window.caregiver().code, situation);
    // Made when there is something to tell; it takes the focus from nobody.
    if (!window.told().empty())
        statusBar()->showMessage(shownName(window.caregiver()) + " : " +
                                 QString::fromUtf8(window.told()));
    select(window.caregiver().code);
    window.deleteLater();
    // Not while the list itself is closing.
    if (isVisible() && windows_.empty())
        activateWindow();
}

void MainWindow::closeEvent(QCloseEvent* event) {
    std::vector<std::string> codes;
    for (const auto& [code, window] : windows_)
        codes.push_back(code);
    bool all = true;
    for (const std::string& code : codes) {
        // A question asked on the way lets the event loop run, where others may have ended.
        const auto found = windows_.find(code);
        const Closing closing = found == windows_.end() ? Closing::Closed : found->second->close();
        all = all && closing == Closing::Closed;
        // A file that cannot be stored keeps none of the others open.
        if (closing == Closing::Stays)
            break;
    }
    if (!all) {
        event->ignore();
        return;
    }
    settings_.setList(saveGeometry(), list_->header()->saveState());
    event->accept();
    emit closed();
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        auto& key = *static_cast<QKeyEvent*>(event);
        if (watched == search_ ? keyInSearch(key.key()) : keyInList(key))
            return true;
    }
    return QMainWindow::eventFilter(watched, event);
}

bool MainWindow::keyInSearch(int key) {
    switch (key) {
    case Qt::Key_Down:
    case Qt::Key_PageDown:
        list_->setFocus(Qt::OtherFocusReason);
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        openCurrent();
        return true;
    case Qt::Key_Escape:
        search_->clear();
        return true;
    default:
        return false;
    }
}

bool MainWindow::keyInList(QKeyEvent& event) {
    const bool first = list_->currentIndex().row() <= 0;
    if (event.key() == Qt::Key_Up && first) {
        search_->setFocus(Qt::OtherFocusReason);
        return true;
    }
    // Letters typed on the list go on with the search.
    const bool plain = (event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == 0;
    const QString text = event.text();
    if (plain && (event.key() == Qt::Key_Backspace || (!text.isEmpty() && text[0].isPrint()))) {
        search_->setFocus(Qt::OtherFocusReason);
        search_->setCursorPosition(static_cast<int>(search_->text().size()));
        QApplication::sendEvent(search_, &event);
        return true;
    }
    return false;
}

void MainWindow::reload() {
    attempt(this, "La liste des aidants n'a pas pu être lue.", [this] {
        const QModelIndex current = filter_.mapToSource(list_->currentIndex());
        const std::string code =
            current.isValid() ? model_.caregiver(current.row()).code : std::string();
        model_.assign(session_.caregivers().all());
        selectSome();
        select(code);
        showCount();
    });
}

void MainWindow::searched() {
    filter_.search(search_->text());
    selectSome();
    showCount();
}

void MainWindow::openCurrent() {
    const QModelIndex current = filter_.mapToSource(list_->currentIndex());
    if (!current.isValid())
        return;
    // A copy: the list may be read anew before the window is there.
    const host::Caregiver caregiver = model_.caregiver(current.row());
    tryToOpen(caregiver);
}

void MainWindow::addCaregiver() {
    const QString vain = filter_.rowCount() == 0 ? search_->text() : QString();
    NewCaregiverDialog dialog(session_.caregivers(), vain, this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    search_->clear();
    reload();
    select(dialog.added()->code);
    tryToOpen(*dialog.added());
}

void MainWindow::tryToOpen(const host::Caregiver& caregiver) {
    attempt(this, "Le dossier de " + shownName(caregiver) + " n'a pas pu être ouvert.",
            [&] { open(caregiver); });
}

void MainWindow::about() {
    QMessageBox box(QMessageBox::Information, "À propos de Vorandine",
                    "Vorandine " VORANDINE_VERSION, QMessageBox::NoButton, this);
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(
        "Dossiers de formation des aidants.\n\nBase : " + QString::fromStdString(session_.url()) +
        "\nUtilisateur : " + QString::fromStdString(session_.user().name));
    box.addButton("&Fermer", QMessageBox::RejectRole);
    box.exec();
}

void MainWindow::select(const std::string& code) {
    const int row = model_.rowOf(code);
    const QModelIndex shown =
        row < 0 ? QModelIndex() : filter_.mapFromSource(model_.index(row, CaregiverModel::Code));
    if (shown.isValid()) {
        list_->setCurrentIndex(shown);
        list_->scrollTo(shown);
    }
}

void MainWindow::selectSome() {
    // Enter in the search opens the current line, so there always is one.
    if (!list_->currentIndex().isValid() && filter_.rowCount() > 0)
        list_->setCurrentIndex(filter_.index(0, CaregiverModel::Code));
    if (list_->currentIndex().isValid())
        list_->scrollTo(list_->currentIndex());
}

void MainWindow::showCount() {
    const int all = model_.rowCount();
    const int shown = filter_.rowCount();
    if (all == 0)
        count_->setText("La base n'a encore aucun aidant.");
    else if (shown == 0)
        count_->setText("Aucun aidant ne correspond.");
    else if (shown == all)
        count_->setText(counted(all));
    else
        count_->setText(QString::number(shown) + " sur " + counted(all));
}

} // namespace vorandine::desktop
