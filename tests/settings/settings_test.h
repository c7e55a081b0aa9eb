// The settings of a console as at start-up, for the tests of the settings file.
#pragma once
#include <cstdlib>
#include <string>

#include "ostrel/system_settings.h"
#include "ostrel/system_state.h"
#include "support/fake_host.h"
#include "support/test_device.h"

namespace ostreltest {

constexpr char kSettingsFile[] = "/mnt/UDISK/system.json";

class SettingsTest : public DeviceTest {
protected:
    SettingsTest() { reset(); }
    ~SettingsTest() override { reset(); }

    void load(const std::string& content) {
        device().write(kSettingsFile, content);
        loadSystemState(gShmInfo, nullptr);
    }

    static int shm(int key) { return host().shm.values.at(static_cast<std::size_t>(key)); }

private:
    static void reset() {
        for (int* flag : {&gEnableKeyTone, &gUseJoystick, &gEnableNetPlayTab, &gEnableAppsTab, &gEnablePortsTab,
                          &gEnableRetroGameTab, &gEnableBestsTab, &gEnableRecentPlayedTab, &gAllowFocusOnTab,
                          &gEnableFavoriteTab, &gEnableHomeWindow}) {
            *flag = 1;
        }
        gEnableSSH = 0;
        std::free(gStoreUrl);
        gStoreUrl = nullptr;
        setSystemLanguage("");
        setTimeZone("");
        set24HourClockFlag(1);
        setSyncTimeFromNetworkFlag(1);
        restoreColorBrightness();
        restoreContrast();
        restoreColorTemperature();
        restoreSaturation();
    }
};

}  // namespace ostreltest
