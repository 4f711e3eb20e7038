#pragma once
// Whether files that are written wait for the disk.

namespace base {

// Whether AtomicFile::commit() waits until the file, and then its new name, have reached the disk, so that a
// power cut leaves the old file or the new one. It does unless it is told otherwise here; each library that
// is linked with this folder has its own switch. What cannot be made to reach the disk is a failure; a file
// system that does not know how is not.
void setWaitingForDisk(bool waits);
bool isWaitingForDisk();

}  // namespace base
