# Crash reporting: the real thing when asked for, else a variant that does
# nothing (tests, fuzzing and builds without the dependency).
target_sources(dwg_import PRIVATE worker/crash_reporting_none.cpp)
