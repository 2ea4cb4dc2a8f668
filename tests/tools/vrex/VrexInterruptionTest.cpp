#include "tools/vrex/VrexInterruption.h"

#include <csignal>

#include <gtest/gtest.h>
#include <unistd.h>

namespace {

TEST(VrexInterruptionDeathTest, ASignalThatNobodyLookedAtTakesEffectAtTheEnd) {
    EXPECT_EXIT(
        {
            {
                const VrexInterruption interruption;
                std::raise(SIGTERM);
            }
            _exit(0);
        },
        testing::KilledBySignal(SIGTERM), "");
}

TEST(VrexInterruptionDeathTest, ASignalThatWasLookedAtIsSpent) {
    EXPECT_EXIT(
        {
            bool isTaken = false;
            {
                VrexInterruption interruption;
                std::raise(SIGINT);
                isTaken = interruption.takeNote();
            }
            _exit(isTaken ? 7 : 8);
        },
        testing::ExitedWithCode(7), "");
}

TEST(VrexInterruptionDeathTest, AfterItsEndSignalsDoWhatTheyDidBefore) {
    EXPECT_EXIT(
        {
            { const VrexInterruption interruption; }
            std::raise(SIGHUP);
            _exit(0);
        },
        testing::KilledBySignal(SIGHUP), "");
}

TEST(VrexInterruption, SignalsThatAreIgnoredStaySo) {
    const auto handler = std::signal(SIGHUP, SIG_IGN);
    {
        VrexInterruption interruption;
        std::raise(SIGHUP);
        EXPECT_FALSE(interruption.takeNote());
    }
    std::signal(SIGHUP, handler);
}

TEST(VrexInterruption, WithoutASignalThereIsNothingToNote) {
    VrexInterruption interruption;
    EXPECT_FALSE(interruption.takeNote());
}

} // namespace
