#pragma once

#include <span>
#include <string>
#include <vector>

#include "support/journey/JourneyHost.h"

namespace bravona {

// What every host must do alike: sequences of gestures on one window, each with the events that it raises, in their
// order. The window stands in EventTable.cpp; a sequence starts on a fresh one, the focus in txtUno.
struct EventCase {
    const char* name;
    // Gestures parted by ";": "type CONTROL text", "key NAME", "press CONTROL", "focus CONTROL", "choose CONTROL item",
    // "select CONTROL row", "tick CONTROL row", "column CONTROL n", "node CONTROL n", "tab CONTROL page", "date CONTROL
    // date", "spin CONTROL up", "wheel CONTROL notches", "menu NAME", "double CONTROL", "close"; by code: "set CONTROL
    // text", "disable CONTROL", "hide CONTROL", "refuse" (closing is refused from here on), "paste text" at the focus.
    const char* gestures;
    const char* events;  // parted by ";"
};

std::span<const EventCase> eventTable();
// Runs the gestures on a window of its own and tells its events, parted by ";".
std::string runEvents(JourneyHost& host, const EventCase& one);

}  // namespace bravona
