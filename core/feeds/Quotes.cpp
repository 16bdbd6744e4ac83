#include "core/feeds/Quotes.h"

#include <array>
#include <numeric>

namespace ambrel {
namespace {

constexpr std::array<std::string_view, 64> all{
    "Begin before you feel ready; ready comes later.",
    "A small step today is worth more than a leap next week.",
    "What you repeat, you become.",
    "Finish the dull part first and the rest will feel like play.",
    "A clear desk will not do the work, but it lets you see it.",
    "Say no kindly, and early.",
    "The best time to ask is while you still do not know.",
    "Measure first. Guess only when you must.",
    "Rest is part of the work, not its reward.",
    "Whoever explains a thing well has understood it twice.",
    "Good tools disappear in the hand.",
    "If it matters, give it a time and a place.",
    "Slow is fine. Standing still is a choice.",
    "Leave every room a little better lit than you found it.",
    "You cannot catch up with everything; choose what to miss.",
    "An honest question opens more doors than a clever answer.",
    "Every long road is short where you are standing.",
    "Keep the promise that nobody would notice you breaking.",
    "Simple is what is left when you have understood it.",
    "Mistakes are expensive only when you keep them.",
    "Do one thing until it is done, then look up.",
    "Water what you want to grow, and stop watering the rest.",
    "The day is long enough for the few things that count.",
    "Curiosity is a lamp that burns what it finds.",
    "Write it down; your head has better things to hold.",
    "Patience is speed that has learned the way.",
    "A walk solves what a chair could not.",
    "Be the calm voice in the room at least once today.",
    "Nobody remembers the hurry. They remember the care.",
    "The first draft only has to exist.",
    "Half of courage is showing up on time.",
    "Make it work, make it plain, then leave it alone.",
    "A kind word costs a breath and lasts a year.",
    "You are allowed to start over at three in the afternoon.",
    "Listen for what the silence is making room for.",
    "Habits are the letters you write to your later self.",
    "Great plans fit on small pieces of paper.",
    "If you must worry, do it with a pencil and a list.",
    "The map is not the road, but take the map.",
    "Do not polish what should be thrown away.",
    "Thank someone before noon.",
    "What you avoid grows; what you face shrinks.",
    "Attention is the rarest gift in a noisy house.",
    "Learn one thing today that nobody asked you to.",
    "A good night begins with what you close in the evening.",
    "Strong opinions deserve gentle handling.",
    "It is easier to steer when you are moving.",
    "Enough is a place; you can live there.",
    "Fix the small leak while it is still a small leak.",
    "The view is better after the part you wanted to skip.",
    "Take the stairs of your own pace.",
    "Doubt is a good servant and a poor captain.",
    "Let the work be serious and the people be light.",
    "Tomorrow is built from what you put away tonight.",
    "Trade one hour of noise for ten minutes of thought.",
    "Whatever you hurry past, you will meet again.",
    "Look twice at whatever seems obvious.",
    "A closed door is sometimes only a heavy one.",
    "Be brief; the sun is out somewhere.",
    "You do not need more time, only fewer beginnings.",
    "The quiet fix is still a fix.",
    "Keep a little room for luck to sit down.",
    "Ask what would make it easy, and do that first.",
    "At the end of the day, the day is over. Let it be.",
};

constexpr std::size_t step = 37;
static_assert(std::gcd(all.size(), step) == 1, "the step meets every quote");

}  // namespace

std::span<const std::string_view> quotes() { return all; }

std::string_view quoteOf(const Calendar& calendar, Instant now) {
  const auto fields = calendar.fields(now);
  const std::chrono::sys_days day(std::chrono::year(fields.year) / fields.month / fields.day);
  const auto number = static_cast<std::uint64_t>(day.time_since_epoch().count());
  return all[number * step % all.size()];
}

}  // namespace ambrel
