#pragma once

// OVSETTINGS_API marks what libOvStore.so and libOvSettings.so export; everything else in them is hidden.
// What <orv/...> declares is the store's, what <ovsettings/...> declares the dialog's. A library symbol is
// always visible to its users, so the mark needs no import form on this platform.
#define OVSETTINGS_API __attribute__((visibility("default")))
