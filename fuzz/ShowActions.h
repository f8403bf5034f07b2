// What an operator does to a show, chosen byte by byte.
#pragma once

#include "fuzz/Input.h"
#include "fuzz/ShowStage.h"

namespace vestrel::fuzz {

// Takes one action and its arguments from `choices` and performs it. Raises what the action raises.
void Act(ShowStage& stage, test::FakeClock& clock, Choices& choices);

}  // namespace vestrel::fuzz
