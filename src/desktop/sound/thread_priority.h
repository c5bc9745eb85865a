#pragma once

namespace marlex {

/// Asks that the calling thread, which feeds a sound device, goes before those that may wait: in
/// real time where the machine allows it, else with a better share of the processor, else nothing
/// changes.
void PreferThisThread();

}  // namespace marlex
