#pragma once

namespace kiv {

// Gives back what the module holds of the system and of its siblings, before the host unloads its library:
// afterwards its code is not there any more. No dialog may be open. What is used later is made anew.
void releasePlatform();

}  // namespace kiv
