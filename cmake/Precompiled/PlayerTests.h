#pragma once

// What the player's tests parse, once.

#include "Player.h"

#include <QtTest>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
