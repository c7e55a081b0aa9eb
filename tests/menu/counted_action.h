// An action that counts its runs and its end.
#pragma once
#include "ostrel/menu_item.h"

namespace ostreltest {

class CountedAction : public Action {
public:
    explicit CountedAction(int& deaths) : mDeaths(deaths) {}
    ~CountedAction() override { ++mDeaths; }
    int dowork(void*) override { return ++runs; }
    int runs = 0;

private:
    int& mDeaths;
};

}  // namespace ostreltest
