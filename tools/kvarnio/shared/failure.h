// How a command ends when it does not do what was asked. The texts are UTF-8 and go to the user.
#pragma once

#include <stdexcept>

namespace kvarnio {

enum ExitStatus { done = 0, failed = 1, wrongUsage = 2 };

// What was asked for is not there, or could not be done.
class Failure : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// The command line asks for something that can never be done.
class UsageError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

} // namespace kvarnio
