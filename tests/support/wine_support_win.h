// Asks whether the tests run under Wine.
#pragma once

// Wine 8 lacks a few things that tests look at, and does others differently.
bool IsWine();
