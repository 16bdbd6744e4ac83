#pragma once
// The settings, a row each. Everything else about a setting is made from its row: the field in `SettingsValues`, the
// property that QML binds to, what is stored, and what `tilebayctl settings` takes.
//
//   BOOLEAN(key, default, page, description)
//   INTEGER(key, default, least, most, page, description)
//   WORD(key, enumeration, default, page, description)
//   WORDS(key, enumeration, page, description)          any number of its cases; all of them by default
//   ADDRESS(key, page, description)                     of a server: http or https; empty by default
//   TEXT(key, page, description)                        empty by default
//   TEXTS(key, default with commas between, page, description)
//   KEYS(key, default, page, description)               a key combination of the whole desktop; it may be empty

// What the whole program shares: these are the fields of `SettingsValues` and the properties of `AppSettings`.
#define AMBREL_SHARED_SETTINGS(BOOLEAN, INTEGER, WORD, WORDS, TEXTS)                                              \
  WORD(dockEdge, DockEdge, bottom, general, "The edge of the screen where the bar is")                            \
  BOOLEAN(barAlwaysVisible, false, general, "The bar stays in view")                                              \
  BOOLEAN(barPeeksForContext, true, general, "The bar comes out for a few seconds when something needs you")      \
  BOOLEAN(shelfOpensOnHover, true, general, "The shelf opens when the pointer rests at the top of the screen")    \
  BOOLEAN(clipboardPreviewInBar, false, tiles, "The clipboard tile shows the last copy")                          \
  BOOLEAN(clipboardEnabled, true, clipboard, "What is copied is kept in a history")                               \
  INTEGER(clipboardLimit, 300, 1, 100000, clipboard, "How many items are kept, pinned ones not counted")          \
  INTEGER(clipboardMaxAgeDays, 0, 0, 36500, clipboard, "After how many days an item is forgotten; 0: never")      \
  BOOLEAN(clipboardForgetSensitive, true, clipboard, "Codes, keys and card numbers are forgotten in an hour")     \
  INTEGER(clipboardTextMegabytes, 32, 1, 1024, clipboard, "The largest text that is kept, in MiB")                \
  INTEGER(clipboardPictureMegabytes, 64, 1, 1024, clipboard, "The largest picture that is kept, in MiB")          \
  INTEGER(clipboardListMegabytes, 4, 1, 1024, clipboard, "The longest list of files that is kept, in MiB")        \
  TEXTS(ignoredBundleIDs,                                                                                         \
        "com.1password.1password,com.agilebits.onepassword7,com.bitwarden.desktop,com.apple.keychainaccess",      \
        clipboard, "Programs whose copies are not kept")                                                          \
  BOOLEAN(agentsEnabled, true, agents, "The sessions of AI agents are followed")                                  \
  BOOLEAN(agentNotifications, true, agents, "A notification when an agent needs you or has finished")             \
  WORD(buddyLevel, BuddyLevel, all, buddy, "How much Buddy says")                                                 \
  WORDS(buddyCategories, BuddyCategory, buddy, "What Buddy speaks about")                                         \
  BOOLEAN(quietHoursOn, true, buddy, "In the quiet hours Buddy says only what is urgent")                         \
  INTEGER(quietStartHour, 22, 0, 23, buddy, "The hour at which the quiet hours begin")                            \
  INTEGER(quietEndHour, 8, 0, 23, buddy, "The hour at which the quiet hours end")                                 \
  INTEGER(claudeBudgetTokens, 0, 0, 1000000000000, buddy, "Tokens of Claude for five hours; 0: no budget")        \
  BOOLEAN(buddyOnlyUnfocusedAgents, true, buddy, "Buddy speaks only about agents whose app is not in front")      \
  BOOLEAN(calendarsFound, true, calendars, "Calendars that are found on this {machine} are shown"_local)          \
  TEXTS(calendarPlaces, "", calendars, "Folders, files and https addresses of more calendars")                    \
  TEXTS(calendarsHidden, "", calendars, "Names of calendars that are not shown")                                  \
  TEXTS(calendarOwnAddresses, "", calendars, "Your mail addresses: what they have declined is not shown")         \
  TEXTS(diskExcludedFolders, "", disk, "Folders that Disk Doctor does not look at")                               \
  WORD(theme, ThemeChoice, system, appearance, "Whether the program is dark or light; system: as the desktop is") \
  BOOLEAN(reduceMotion, false, appearance, "A short fade takes the place of movement")

// What one model alone reads.
#define AMBREL_OWN_SETTINGS(BOOLEAN, INTEGER, WORD, ADDRESS, TEXT, KEYS)                                             \
  BOOLEAN(weatherFahrenheit, false, panel, "Temperatures are in degrees Fahrenheit")                                 \
  WORD(airQualityScale, AirQualityScale, us, panel, "The index in which the air quality is told")                    \
  ADDRESS(weatherForecastURL, tiles, "Where forecasts come from; empty: Open-Meteo's public service")                \
  ADDRESS(weatherAirQualityURL, tiles, "Where the air quality comes from; empty: Open-Meteo's public service")       \
  ADDRESS(weatherGeocodingURL, tiles, "Where places are looked up; empty: Open-Meteo's public service")              \
  ADDRESS(hackerNewsURL, tiles, "Where stories come from; empty: the public service of Hacker News")                 \
  ADDRESS(currencyRatesURL, tiles, "Where rates come from; empty: the European Central Bank's daily list")           \
  INTEGER(pomodoroFocus, 25, 1, 180, panel, "Minutes of a focus session")                                            \
  INTEGER(pomodoroBreak, 5, 1, 180, panel, "Minutes of a break")                                                     \
  INTEGER(pomodoroLongBreak, 15, 1, 180, panel, "Minutes of a long break")                                           \
  INTEGER(pomodoroSessions, 4, 1, 12, panel, "Focus sessions until a long break")                                    \
  BOOLEAN(pomodoroAutoStart, false, panel, "The next phase begins by itself")                                        \
  INTEGER(waterGoal, 8, 1, 30, panel, "Glasses of water a day")                                                      \
  INTEGER(waterInterval, 30, 5, 480, panel, "Minutes from one glass of water to the next")                           \
  BOOLEAN(waterReminders, true, panel, "A notification when a glass of water is due")                                \
  BOOLEAN(eyeBreakOn, true, panel, "A notification when the eyes need a break")                                      \
  INTEGER(eyeBreakInterval, 20, 1, 240, panel, "Minutes from one break for the eyes to the next")                    \
  BOOLEAN(standUpOn, true, panel, "A notification when it is time to stand up")                                      \
  INTEGER(standUpInterval, 45, 1, 240, panel, "Minutes from standing up to the next time")                           \
  BOOLEAN(alarmOn, false, panel, "The alarm rings")                                                                  \
  INTEGER(alarmHour, 7, 0, 23, panel, "The hour at which the alarm rings")                                           \
  INTEGER(alarmMinute, 30, 0, 59, panel, "The minute at which the alarm rings")                                      \
  INTEGER(alarmSnooze, 10, 1, 60, panel, "Minutes by which Snooze puts off the alarm")                               \
  WORD(weekNumbering, WeekNumbering, iso, panel, "How weeks are numbered: by ISO 8601, or as the locale does")       \
  INTEGER(meetingFromHour, 9, 0, 23, panel, "The hour at which work begins, in the meeting planner")                 \
  INTEGER(meetingToHour, 17, 1, 24, panel, "The hour at which work ends, in the meeting planner")                    \
  INTEGER(passwordLength, 20, 4, 128, panel, "Characters of a new password")                                         \
  ADDRESS(translateServerURL, panel, "Where texts are translated; empty: on this {machine}"_local)                   \
  ADDRESS(translateServerAllowedURL, none, "The server on another {machine} to which texts may go"_local)            \
  BOOLEAN(askUsesModel, true, buddy, "A language model answers, where a server on this {machine} has one"_local)     \
  ADDRESS(modelServerURL, buddy, "Where the language model answers; empty: the usual ports of this {machine}"_local) \
  ADDRESS(modelServerAllowedURL, none, "The server on another {machine} to which questions may go"_local)            \
  TEXT(modelName, buddy, "Which of the server's models answers; empty: the first")                                   \
  KEYS(barKeys, "Ctrl+Super+Alt+D", general, "Brings the bar out")                                                   \
  KEYS(shelfKeys, "Super+Alt+V", general, "Opens the clipboard shelf")                                               \
  KEYS(pinnedKeys, "Ctrl+Super+Alt+1", general, "Copies pinned clip 1; the other digits copy the others")            \
  KEYS(askKeys, "Super+Alt+B", general, "Asks Buddy")                                                                \
  KEYS(notesKeys, "Ctrl+Super+Alt+N", general, "Captures the screen for Screen Notes")                               \
  BOOLEAN(keysAreAsked, true, none, "The desktop is asked for the keys, where it binds keys for programs")           \
  INTEGER(diskProjectDays, 60, 1, 3650, disk, "Days after which a project counts as left alone")                     \
  INTEGER(diskInstallerDays, 30, 1, 3650, disk, "Days after which a downloaded installer counts as old")             \
  INTEGER(diskScreenshotDays, 30, 1, 3650, disk, "Days after which a screenshot counts as old")                      \
  INTEGER(diskLargeMegabytes, 1000, 10, 1000000, disk, "The least size of a large file, in MB")                      \
  INTEGER(diskLargeDays, 90, 1, 3650, disk, "Days that nobody has opened a large file")                              \
  INTEGER(diskDuplicateMegabytes, 100, 1, 1000000, disk, "The least size of a duplicate, in MB")
