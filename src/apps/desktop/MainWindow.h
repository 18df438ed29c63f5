// The list of caregivers: searched, sorted, and worked from; each file opens in its own window.
#pragma once

#include "apps/desktop/CaregiverModel.h"
#include "apps/desktop/Session.h"
#include "apps/desktop/Settings.h"

#include <QMainWindow>

#include <map>
#include <string>

class QLabel;
class QLineEdit;
class QTreeView;

namespace vorandine::desktop {

class CaregiverWindow;

class MainWindow : public QMainWindow {
    Q_OBJECT
  public:
    // `session` and `settings` must outlive the window. Throws what reading caregivers and rights
    // throws.
    MainWindow(Session& session, Settings& settings);

    // Opens the caregiver's file, or brings its window to the front if it is open.
    void open(const host::Caregiver& caregiver);

  signals:
    // The window has closed, and every caregiver's before it.
    void closed();

  protected:
    // Closes every caregiver's window as its own close button does, up to the first that its user
    // does not want closed; stays if one stays.
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    Session& session_;
    Settings& settings_;
    CaregiverModel model_;
    CaregiverFilter filter_{model_};
    QLineEdit* search_;
    QTreeView* list_;
    QLabel* count_;
    std::map<std::string, CaregiverWindow*> windows_;

    void layOut();
    void makeMenus();
    void reload();
    void searched();
    void openCurrent();
    void addCaregiver();
    void tryToOpen(const host::Caregiver& caregiver);
    void about();
    void ended(CaregiverWindow& window, const Situation& situation);
    // Makes the caregiver's line the current one, if the search shows it.
    void select(const std::string& code);
    void selectSome();
    void showCount();
    bool keyInSearch(int key);
    bool keyInList(QKeyEvent& event);
};

} // namespace vorandine::desktop
