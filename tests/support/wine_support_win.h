// Asks whether the tests run under Wine.
#pragma once

// Wine 8 lacks a few things that tests would look at, and keeps others in ways of its own.
bool IsWine();
