#pragma once

/// In front of a function that is seldom called: what leads to it stays out of the way of what is done for every line.
#if defined(__GNUC__)
#define TORVEL_COLD __attribute__((cold))
#else
#define TORVEL_COLD
#endif
