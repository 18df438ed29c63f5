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
    std::string head; // a first sentence, which is set off; this or the next may be empty
    std::string text; // what is said beside it
    // Of what a press can show; "" where there is nothing to press. Without a letter underlined:
    // those are the form's.
    std::string button;
};

// The user has not got the right to write: told from the start.
[[nodiscard]] Notice consultation();

// What other seats have stored of the open file, and what becomes of it; its button shows what that
// is. Nothing becomes of it here where the user may not write, nor where it is hours alone, which
// are stored line by line.
enum class NewsOf { File, HoursAlone };
[[nodiscard]] Notice news(const widgets::Told& told, NewsOf what, bool mayWrite);

// The list of employers is older than what another seat has stored; its button reads it anew.
[[nodiscard]] Notice employersChanged();

} // namespace vorandine::host
