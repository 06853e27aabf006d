// SPDX-License-Identifier: MIT
#include "viewer/CameraFlight.h"

#include <gtest/gtest.h>

#include <cmath>

using viewer::CameraFlight;
using viewer::CameraPose;

TEST(CameraFlightTest, GoesRoundTheTargetAndEndsExactlyWhereItShould)
{
    const CameraPose side{10, 2, -15, 0, 2, -15}, other{-10, 2, -15, 0, 2, -15};
    const CameraPose above{0.3f, 302, -40, 0, 2, -40};
    for (const auto &[from, to] : {std::pair(side, other), {side, above}, {above, other}}) {
        const CameraFlight flight(from, to);
        EXPECT_EQ(flight.At(0), from);
        EXPECT_EQ(flight.At(1), to);
        EXPECT_EQ(flight.At(1.2f), to) << "a late frame";
        float gone = 0, last = 0;
        CameraPose before = from;
        for (int part = 1; part <= 100; ++part) {
            const CameraPose now = flight.At(static_cast<float>(part) / 100);
            const float distance =
                std::hypot(now.CamX - now.LookAtX, now.CamY - now.LookAtY, now.CamZ - now.LookAtZ);
            EXPECT_GE(distance, 9.99f) << "not through the target";
            last =
                std::hypot(now.CamX - before.CamX, now.CamY - before.CamY, now.CamZ - before.CamZ);
            gone += last;
            before = now;
        }
        EXPECT_LT(last, gone / 500) << "slow at the end";
    }
    EXPECT_EQ(CameraFlight(side, side).At(0.5f), side);
}
