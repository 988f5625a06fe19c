// The X keyboard extension's header, which is C alone: one of its fields has the name of a keyword.
#pragma once

#include <xcb/xcb.h>

#define explicit isExplicit // NOLINT
#include <xcb/xkb.h>
#undef explicit
