#pragma once

// OVSUITE_API marks what libOvSuite.so exports; everything else in it is hidden.
#define OVSUITE_API __attribute__((visibility("default")))
