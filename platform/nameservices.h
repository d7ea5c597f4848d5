#pragma once

namespace platform {

/// Has the process load now what the system asks for users and hosts, as its nsswitch.conf(5) says, rather
/// than at the first look-up.
void loadNameServices();

} // namespace platform
