#pragma once

// OVSETTINGS_API marks what libOvSettings.so exports; everything else in it is hidden. A library symbol is
// always visible to its users, so the mark needs no import form on this platform.
#define OVSETTINGS_API __attribute__((visibility("default")))
