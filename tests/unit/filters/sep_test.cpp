#include "filters/sep.h"

#include <gtest/gtest.h>

namespace Vornik {
namespace {

TEST(SepRules, CodeThatHoldsASepIdAnywhere) {
  for (const std::string code :
       {"orx_utl_sep", "orx_utl_tsep", "orx_utl_sep_agent_2", "orx_utl_tsep_agent_2",
        "x_orx_utl_sep", "x_orx_utl_tsep", "x_orx_utl_sep_2", "orx_utl_separate", "orx_utl_tseps",
        "orx_utl_orx_utl_sep", "orx_utl_torx_utl_tsep", " orx_utl_sep ", "\xE4orx_utl_sep",
        "orx_utl_tsep orx_utl_sep"}) {
    EXPECT_TRUE(IsSepCode(code)) << code;
  }
  EXPECT_TRUE(IsSepCode(std::string("a\0orx_utl_sep", 13)));
}

TEST(SepRules, AnyOtherCode) {
  for (const std::string code : {"",
                                 "a",
                                 "sep",
                                 "tsep",
                                 "utl_sep",
                                 "orx_utl_",
                                 "orx_utl_se",
                                 "orx_utl_tse",
                                 "orx_utl_ttsep",
                                 "orx_utl_xsep",
                                 "orx_utlsep",
                                 "orx-utl-sep",
                                 "orx_utl__sep",
                                 "rx_utl_sep",
                                 "orx_utl_ sep",
                                 "ORX_UTL_SEP",
                                 "ORX_UTL_TSEP",
                                 "orx_utl_SEP",
                                 "Orx_utl_sep",
                                 "orx_utl_tSep",
                                 "orx_drv_sep"}) {
    EXPECT_FALSE(IsSepCode(code)) << code;
  }
  EXPECT_FALSE(IsSepCode(std::string("orx_utl\0_sep", 12)));
}

}  // namespace
}  // namespace Vornik
