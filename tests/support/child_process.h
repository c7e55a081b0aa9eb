// Runs part of a test in a child process: what it does to global state, and the rights it gives up, end with it.
#pragma once
#include <gtest/gtest.h>

#include <functional>

namespace ostreltest {

// WithoutOverride is for a program that the child starts: it runs as the same user, who as root reads what other users
// may not (a tree below root's own folder), but no file whose own permissions forbid it.
enum class ChildUser { Same, Unprivileged, WithoutOverride };

// Success when the body ended normally and no expectation failed in it; the child prints its failures itself. An
// unprivileged child gives up root when it has it, so that the permissions of files count.
::testing::AssertionResult passesInChild(const std::function<void()>& body, ChildUser user = ChildUser::Same);

}  // namespace ostreltest
