// What the settings file stores and restores past the public setters.
#pragma once

namespace ostrel {

// Stores the zone as it stands, the path of a zone file included; setTimeZone would shorten that.
void storeTimeZone(const char* zone);

}  // namespace ostrel
