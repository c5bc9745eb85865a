#pragma once

#include <QString>
#include <string>

namespace marlex {

/// Converts a text of the system for display: a carriage return, alone or with a line feed, becomes
/// a line feed.
QString ShownText(const std::string& text);

/// The same for buttons, menus and frames, where a single '&' would underline the next letter.
QString ShownCaption(const std::string& text);

/// The same for a tool tip, which would interpret a text that looks like HTML.
QString ShownToolTip(const std::string& text);

}  // namespace marlex
