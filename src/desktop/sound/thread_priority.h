#pragma once

namespace marlex {

/// Raises the priority of the calling thread, which feeds a sound device: real-time scheduling
/// where the machine permits it, else a lower nice value, else no change.
void PreferThisThread();

}  // namespace marlex
