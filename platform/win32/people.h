#pragma once

namespace kiv::win32 {

// Whether somebody answers: a person, who has the host's window, or a dialog script. Otherwise a question
// would wait for ever.
bool somebodyAnswers();

}  // namespace kiv::win32
