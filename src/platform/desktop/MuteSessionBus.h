#pragma once

namespace tessary {

/// A bus that is there and never answers holds up everybody who joins it, Qt's own parts as well,
/// without end. One that says nothing for a second, or that has a service which Qt would wait for
/// say nothing for two, is taken out of this process's environment. Returns whether that was so.
/// Called before the application object is made, and before there are
/// threads that read the environment.
bool leaveMuteSessionBus();

} // namespace tessary
