#include <gtest/gtest.h>

#include <tuple>

#include "platform/vb/Quotient.h"
#include "platform/vb/Strings.h"

using namespace vb;

// The counts of the reports as the runtime formats them: percents of a part of a
// whole rounded half away from zero on the decimal value (0.285 is 28.4999... in
// binary and still shows 29%), "#" places that print nothing for zero.
TEST(Quotient, ReportFormatsRoundAsTheRuntime) {
    const std::tuple<double, double, const char*, const char*> rows[] = {
        {1, 8, "#%", "13%"},      {1, 8, "0%", "13%"},      {1, 3, "#%", "33%"},     {2, 3, "0%", "67%"},
        {1, 6, "#%", "17%"},      {57, 200, "0%", "29%"},   {29, 200, "#%", "15%"},  {1, 200, "0%", "1%"},
        {1, 201, "0%", "0%"},     {1, 201, "#%", "%"},      {0, 5, "#%", "%"},       {0, 5, "0%", "0%"},
        {5, 5, "#%", "100%"},     {7, 2, "0%", "350%"},     {9999, 1, "#%", "999900%"},
        {12, 100, "0%", "12%"},   {0, 1, "####", ""},       {7, 1, "####", "7"},     {9999, 1, "####", "9999"},
        {19998, 1, "###", "19998"}, {0, 1, "###", ""},      {1, 2, "##", "1"},       {5, 2, "##", "3"},
        {7, 2, "###", "4"},       {1, 3, "##", ""},         {149, 2, "##", "75"},    {445, 10, "##", "45"},
        {2, 5, "##", ""},         {99, 2, "##", "50"},      {1, 0, "#%", "0%"},      {0, 0, "0%", "0%"},
        {3, 0, "##", "na"},       {0, 0, "####", "na"}};
    for (const auto& [part, whole, code, want] : rows)
        EXPECT_EQ(want, FormatQuotient(part, whole, code, code[0] == '#' && code[1] == '#' ? "na" : "0%"))
            << part << "/" << whole << " " << code;
}
