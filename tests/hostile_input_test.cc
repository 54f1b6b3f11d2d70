#include <gtest/gtest.h>
TEST(Hostile, X) {}
