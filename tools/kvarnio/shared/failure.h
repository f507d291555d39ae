// How a command ends when it does not do what was asked. The texts are UTF-8 and go to the user.
#pragma once

#include <stdexcept>

namespace kvarnio {

enum ExitStatus {
    done = 0,
    failed = 1, // what was asked for is not there, or a check found something
    wrongUsage = 2,
    notDone = 3 // something could not be read or written
};

// What was asked for is not there.
class Failure : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// Something could not be read or written.
class IoFailure : public Failure {
  public:
    using Failure::Failure;
};

// The command line asks for something that can never be done.
class UsageError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

} // namespace kvarnio
