#pragma once
// The module's commands.

namespace kiv {

// Group KIV_UTIL2: KIV_TOACAD (UT) and KIV_TOACAD2 (UT2).
void registerCommands();
void removeCommands();

void interactiveCommand();  // KIV_TOACAD
void conversionCommand();   // KIV_TOACAD2

}  // namespace kiv
