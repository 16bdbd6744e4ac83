#pragma once
// The events, tasks and zones of an iCalendar text, each whole and by itself. So one that is broken spoils no other,
// and who parses a piece meets neither deep nesting nor attachments.

#include <string>
#include <string_view>
#include <vector>

namespace ambrel {

struct CalendarPieces {
  struct Piece {
    std::string kind, text;  // "VEVENT", "VTODO" or "VTIMEZONE", and its lines from BEGIN to END
  };
  std::vector<Piece> pieces;
  std::string name;  // of the calendar; empty when the text does not tell
};

// What is too long for an event, such as a mail in it, is left out.
CalendarPieces calendarPieces(std::string_view text);

}  // namespace ambrel
