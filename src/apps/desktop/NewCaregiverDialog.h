// Adds a caregiver: code and name, checked as the store needs them.
#pragma once

#include "apps/host/Caregivers.h"

#include <QDialog>

#include <optional>

class QLabel;
class QLineEdit;

namespace vorandine::desktop {

// Closes as accepted only once the caregiver is stored; what is refused is told in the dialog, at
// the field that it concerns.
class NewCaregiverDialog : public QDialog {
    Q_OBJECT
  public:
    // `caregivers` must outlive the dialog. `typed` is what the user looked for in vain, taken as
    // a code if it has a digit, else as a name.
    NewCaregiverDialog(host::Caregivers& caregivers, const QString& typed,
                       QWidget* parent = nullptr);

    // The caregiver stored; none before that.
    [[nodiscard]] const std::optional<host::Caregiver>& added() const noexcept { return added_; }

    void accept() override;

  private:
    host::Caregivers& caregivers_;
    QLineEdit* code_;
    QLineEdit* name_;
    QLabel* refusal_;
    std::optional<host::Caregiver> added_;

    void refuse(QLineEdit& field, const QString& why);
};

} // namespace vorandine::desktop
