// What BeginPrint's job types are called, in the log and by those who choose one.
#pragma once

namespace tolvex {

struct JobName {
  int jobType;
  const char* name;
};

// Further types have their number as their name. In the log so have those with a name of more than 15
// characters.
constexpr JobName kJobNames[] = {
    {0, "0_Ticket"},        {2, "2_DOT_LBL"},
    {4, "4_FEED"},          {7, "7_IMG_TKT"},
    {8, "8_CUT"},           {80, "80_CALIB_LBL"},
    {204, "204_IMG_LBL"},   {205, "205_DOT_LBL"},
    {206, "206_FEED_AUTO"}, {208, "208_FEED_LBL"},
    {105, "105_FP_CUT"},    {207, "207_FLP_CUT"},
    {305, "305_FLLP_CUT"},  {104, "104_FP_FEED"},
    {304, "304_FLLP_FEED"}, {90, "90_RESET_CALIB_LBL"},
    {81, "81_CALIB_TKT"},   {91, "91_RESET_CALIB_TKT"},
};

}  // namespace tolvex
