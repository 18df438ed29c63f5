// What hosts tell above a caregiver's form for as long as it holds: the texts, which every host
// shows alike.
#pragma once

#include "widgets/World.h"

#include <string>

namespace vorandine::host {

// The worse, the later.
enum class NoticeKind { Told, Locked, Warning, Failed };

struct Notice {
    std::string name; // a later notice of this name takes its place
    NoticeKind kind = NoticeKind::Told;
    std::string head;   // a first sentence, which is set off; this or the next may be empty
    std::string text;   // what is said beside it
    std::string button; // of what a press can show; "" where there is nothing to press
};

// The user has not got the right to write: told from the start.
[[nodiscard]] Notice consultation();

// What other seats have stored of the open file; its button shows what that is.
[[nodiscard]] Notice news(const widgets::Told& told);

// The list of employers is older than what another seat has stored; its button reads it anew.
[[nodiscard]] Notice employersChanged();

} // namespace vorandine::host
