// ReportError: the one way the core tells the user something.
#pragma once

#include <string_view>

namespace quorvel {

struct AppState;

enum Severity : int { Clear = 0, Confirmation = 1, Information = 2, Warning = 3, Error = 4 };

// Shows `message` at `severity` while keeping the first error of an action:
// severities 1 and 2 show when not lower than the kept severity, 3 and 4 only
// when strictly higher. An empty message or severity 0 clears the strip when
// the kept severity is higher. On the console thread messages of severity 2
// and above become console lines. Always returns.
void ReportError(AppState& app, std::u16string_view message, int severity);

// Clears the message strip (an empty message at severity 0).
inline void ClearMessage(AppState& app) { ReportError(app, {}, Clear); }

}  // namespace quorvel
