#pragma once
// The bar: where it is, when it shows, how its tiles share its length. Decisions only; the pointer, the frames
// and the time are passed in. Lengths are logical pixels, y grows upwards.

#include <optional>
#include <set>
#include <span>
#include <string>
#include <vector>

#include "core/base/Geometry.h"
#include "core/base/Instant.h"
#include "core/dock/DockEdge.h"
#include "core/widgets.h"

namespace ambrel {

// The first screen: all of it, and what docks and panels of others leave free.
struct ScreenFrames {
  Rect frame, visibleFrame;
  friend bool operator==(const ScreenFrames&, const ScreenFrames&) = default;
};

// Whether the system Dock, which hides by itself, is taken to be on screen. Judged by the pointer alone.
struct SystemDockRule {
  // From the screen's bottom edge; within it the system Dock counts as in use.
  double dockBand = 110.0;
  Seconds returnDelay{0.45};
  bool isShowing = false;
  // When the pointer left the band.
  std::optional<Instant> leftAt{};

  // distance: of the pointer from the screen's bottom edge. True when `isShowing` has changed.
  bool update(double distance, Instant now);
  // When an update has something to do although the pointer rests; absent: not before it moves.
  std::optional<Instant> waitsUntil() const;

  friend bool operator==(const SystemDockRule&, const SystemDockRule&) = default;
};

// What the bar's tick looks at.
struct BarSurroundings {
  Point pointer{};
  Rect screen{};
  // Where the bar is when it is shown.
  Rect bar{};
  DockEdge edge = DockEdge::bottom;
  bool isAlwaysVisible = false;
  // A panel that is anchored to the bar is open.
  bool isHeldOpen = false;
};

// The bar and 16 around it, down to the edge of the screen: here the pointer keeps a revealed bar.
Rect hoverZone(const Rect& bar, const Rect& screen, DockEdge edge);

struct BarReveal {
  static constexpr double revealDistance = 2.0;
  static constexpr Seconds hideDelay{0.5};
  static constexpr Seconds tickInterval{1.0 / 30};

  // The pointer or a command has revealed the bar.
  bool isRevealed = false;
  std::optional<Instant> peekUntil{};
  // When the pointer left the hover zone.
  std::optional<Instant> outsideSince{};
  // The bar has left a pointer that runs along the edge beyond the bar's ends. It comes out again after the pointer
  // has left the edge or has come to the bar's place.
  bool isEdgeSpent = false;

  // True when the bar is to be shown or hidden again.
  bool tick(const BarSurroundings& around, Instant now);
  // When a tick has something to do although nothing around the bar changes; absent: not before the pointer moves
  // or a panel opens or closes. To be asked after a tick with the same surroundings.
  std::optional<Instant> waitsUntil(const BarSurroundings& around) const;

  // The instant at which it ends.
  Instant peek(Seconds length, Instant now);
  // Ends the peek that was to last until then, unless another one has taken its place. True when it was running.
  bool endPeek(Instant until);
  void reveal();

  bool shouldShow(bool isAlwaysVisible, bool isHeldOpen) const { return isAlwaysVisible || isRevealed || isHeldOpen; }
  // The peek that is running keeps the bar out.
  bool isPeeking(Instant now) const { return isRevealed && peekUntil && now < *peekUntil; }

  friend bool operator==(const BarReveal&, const BarReveal&) = default;
};

// When to tick next: a thirtieth of a second after `lastTick` while the pointer moves, else at the first of the
// deadlines, and never sooner. Absent: a pointer that rests needs no tick.
std::optional<Instant> nextTick(Instant lastTick, bool isPointerMoving,
                                std::span<const std::optional<Instant>> deadlines);

struct BarPlacement {
  static constexpr double margin = 8;
  // Above a system Dock that has just been revealed, where it is not known how high that is.
  static constexpr double systemDockHeight = 76;

  // The longest that the bar may be along its edge; 0 or more.
  double maxLength = 0;
  Rect frame;
  // What the window around the bar may cover: not the panels of others, nor the strip by which a hidden dock comes.
  Rect room;

  friend bool operator==(const BarPlacement&, const BarPlacement&) = default;
};
// width, height: of the bar. isSystemDockShowing: what SystemDockRule says of one that hides.
BarPlacement placedBar(const ScreenFrames& screen, DockEdge edge, double width, double height, bool isSystemDockShowing,
                       double systemDockHeight = BarPlacement::systemDockHeight);

// The steps of showing and hiding a panel. Each delayed step is carried out after its delay, and does nothing when
// the panel has been shown or hidden again since.
struct PresentationStep {
  enum class Kind { showContent, leaveScreen };
  Kind kind = Kind::showContent;
  Seconds delay{0};
  int generation = 0;
  friend bool operator==(const PresentationStep&, const PresentationStep&) = default;
};

struct PresentationState {
  static constexpr Seconds contentDelay{0.07};
  static constexpr Seconds leaveDelay{0.36};

  bool isShown = false;
  bool isContentShown = false;
  bool isOnScreen = false;
  int generation = 0;

  // Absent when it is shown, or hidden, already.
  std::optional<PresentationStep> show();
  std::optional<PresentationStep> hide();
  void carryOut(const PresentationStep& step);

  friend bool operator==(const PresentationState&, const PresentationState&) = default;
};

// What may bring the bar out for a few seconds.
struct PeekSignals {
  struct Event {
    std::string id;
    Instant start;
    bool isAllDay = false;
  };
  // Ids of the sessions that need the user.
  std::vector<std::string> waitingSessions{};
  // The calendar's next event.
  std::optional<Event> nextEvent{};
  // Absent while water reminders are off.
  std::optional<Instant> waterDue{};
};
// "agent:ID", "event:ID" from 120 seconds before its start on, "water:SECONDS" for less than 60 seconds.
std::set<std::string> peekReasons(const PeekSignals& signals, Instant now);

// Each reason peeks once, however long it lasts.
struct PeekMemory {
  static constexpr Seconds peekLength{6};
  std::set<std::string> seen;
  // Whether the bar is to peek. Reasons are remembered while peeking is off, too.
  bool check(const std::set<std::string>& reasons, bool isPeekingOn);
};

// How the tiles share the bar.

struct TileRequest {
  TileSize size = TileSize::medium, smallest = TileSize::small;
  friend bool operator==(const TileRequest&, const TileRequest&) = default;
};
// A widget that this version does not know gets a medium tile.
TileRequest tileRequest(std::string_view widgetID);

struct TileLayout {
  static constexpr double padding = 8, gap = 8, tileHeight = 64;

  // From the bar's lower left corner, in bar order: from left to right at the bottom, from top to bottom at the
  // sides. What is beyond the bar's length is scrolled to.
  std::vector<Rect> tiles{};
  // Of the bar.
  double width = 0, height = 0;
  // Of all tiles with the padding, along the edge; more than the bar's length when it scrolls.
  double contentLength = 0;
  bool isScrolling = false;

  friend bool operator==(const TileLayout&, const TileLayout&) = default;
};
// At the bottom the widest tiles step down first, of equally wide ones the last, none below its smallest size. At
// the sides all tiles are as wide as the widest has to be, yet no wider than medium when they can.
TileLayout fittedTiles(std::span<const TileRequest> requests, DockEdge edge, double maxLength);

// Where a tile that is dragged along the bar lands: how many of the others come before it. middles: of the others on
// the bar as it is while the tile is held, from the bar's beginning, ascending; at: the pointer, from there, too. The
// tile stays where it has landed until the pointer has crossed the middle of a neighbour.
std::size_t landingPlace(std::span<const double> middles, double at);

}  // namespace ambrel
