#pragma once

// OVSUITE_API marks what libOvSuite.so and libOvSuiteWidgets.so export; everything else in them is hidden.
#define OVSUITE_API __attribute__((visibility("default")))
