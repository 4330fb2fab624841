#include "search/web_agent.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "search/agent_fields.h"

namespace brovanta {
namespace {

bool Serves(const std::string& site_type, std::int32_t category) {
  WebAgent agent;
  agent.SiteType = site_type;
  return agent.Serves(category);
}

TEST(WebAgentTest, ServesTheNumbersOfItsList) {
  EXPECT_TRUE(Serves("1,3", 1));
  EXPECT_TRUE(Serves("1,3", 3));
  EXPECT_FALSE(Serves("1,3", 2));
  EXPECT_TRUE(Serves("2, 3", 2));
  EXPECT_TRUE(Serves("2, 3", 3));
  EXPECT_TRUE(Serves("4 5", 4));
  EXPECT_TRUE(Serves("4 5", 5));
}

TEST(WebAgentTest, WhatStandsInFrontIsNotLookedAt) {
  EXPECT_TRUE(Serves("12", 2));
  EXPECT_FALSE(Serves("12", 1));
  EXPECT_TRUE(Serves("21", 1));
  EXPECT_FALSE(Serves("21", 2));
}

TEST(WebAgentTest, OnlyTheFirstOccurrenceCounts) {
  EXPECT_FALSE(Serves("11,1", 1));
  EXPECT_FALSE(Serves("1x,1", 1));
}

// The character behind the first digit is always the second one.
TEST(WebAgentTest, NumbersOfTwoDigitsNeverMatch) {
  EXPECT_FALSE(Serves("12", 12));
  EXPECT_FALSE(Serves("1,12,3", 12));
  for (std::int32_t category = 10; category <= 99; ++category) {
    const std::string number = std::to_string(category);
    EXPECT_FALSE(Serves(number, category)) << number;
    EXPECT_FALSE(Serves(number + ", " + number + " 1,2", category)) << number;
  }
}

// Where both digits are the same the first occurrence is the first digit, with a digit behind it.
TEST(WebAgentTest, ListOfTwoDigitsServesItsLastDigitOnly) {
  for (std::int32_t number = 10; number <= 99; ++number) {
    for (std::int32_t category = 1; category <= 9; ++category) {
      const bool expected = number % 10 == category && number / 10 != category;
      EXPECT_EQ(Serves(std::to_string(number), category), expected) << number << " " << category;
    }
  }
}

TEST(WebAgentTest, OtherSeparatorsAreNone) {
  EXPECT_FALSE(Serves("1;2", 1));
  EXPECT_FALSE(Serves("1\t2", 1));
  EXPECT_FALSE(Serves("1\n2", 1));
  EXPECT_FALSE(Serves("1\r\n2", 1));
  EXPECT_TRUE(Serves("1;2", 2));
}

TEST(WebAgentTest, WithoutCategoriesItServesNone) {
  EXPECT_FALSE(Serves("", 1));
  EXPECT_FALSE(WebAgent{}.Serves(1));
}

TEST(WebAgentTest, CompleteWithEveryRequiredFieldEvenWhenEmpty) {
  WebAgent agent;
  agent.SiteId = 1;
  for (const AgentField& field : kAgentFields) {
    if (field.required) (agent.*field.text).emplace();
  }
  EXPECT_TRUE(agent.IsComplete());
  agent.SiteId = 0;
  EXPECT_FALSE(agent.IsComplete());
}

TEST(WebAgentTest, EachRequiredFieldIsMissed) {
  int required = 0;
  for (const AgentField& missing : kAgentFields) {
    WebAgent agent;
    agent.SiteId = 1;
    for (const AgentField& field : kAgentFields) (agent.*field.text).emplace("x");
    (agent.*missing.text).reset();
    EXPECT_EQ(agent.IsComplete(), !missing.required) << missing.name;
    if (missing.required) ++required;
  }
  EXPECT_EQ(required, 10);
}

}  // namespace
}  // namespace brovanta
