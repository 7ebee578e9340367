#pragma once
// The exceptions of the library. Each carries a complete English message that can be shown as it stands.

#include <stdexcept>
#include <string>

namespace kx {

/// The base of everything that the library raises. what() is the message.
class Exception : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
    std::string Message() const { return what(); }
};

/// A text or an object cannot be turned into what was asked for.
class EConvertError : public Exception {
    using Exception::Exception;
};
/// An index lies outside its container.
class ERangeError : public Exception {
    using Exception::Exception;
};
/// A component name is not an identifier, or is taken.
class EComponentError : public Exception {
    using Exception::Exception;
};
/// A published property is unknown, read-only, or was given a value that it cannot take.
class EPropertyError : public Exception {
    using Exception::Exception;
};
/// A file cannot be read or written; the message names the file and the reason.
class EFileError : public Exception {
    using Exception::Exception;
};

/// The base of the errors of arithmetic.
class EMathError : public Exception {
    using Exception::Exception;
};
class EZeroDivide : public EMathError {
    using EMathError::EMathError;
};
class EInvalidOp : public EMathError {
    using EMathError::EMathError;
};
class EOverflow : public EMathError {
    using EMathError::EMathError;
};

} // namespace kx
