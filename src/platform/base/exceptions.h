#pragma once
// The exceptions of the library. Each carries a complete English message that can be shown as it stands.

#include <cstddef>
#include <stdexcept>
#include <string>
#include <utility>

namespace kx {

/// The base of everything that the library raises. what() is the message.
class Exception : public std::runtime_error {
public:
    explicit Exception(const std::string& Message) : std::runtime_error(Message), FMessage(Message) {}
    const char* what() const noexcept override { return FMessage.c_str(); }
    const std::string& Message() const { return FMessage; }
    /// For a handler that knows more, such as whose calculation failed, and raises the same object again.
    void SetMessage(std::string Message) { FMessage = std::move(Message); }

private:
    std::string FMessage;
};

/// A text or an object cannot be turned into what was asked for.
class EConvertError : public Exception {
    using Exception::Exception;
};
/// An index lies outside its container.
class ERangeError : public Exception {
    using Exception::Exception;
};
/// Index of a list of Count elements. Raises ERangeError "i=%d index out of range" for any other.
inline std::size_t CheckedIndex(int Index, std::size_t Count) {
    if (Index < 0 || static_cast<std::size_t>(Index) >= Count)
        throw ERangeError("i=" + std::to_string(Index) + " index out of range");
    return static_cast<std::size_t>(Index);
}
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

/// A form file cannot be read, or a form cannot be written into one. What reads says where: "axes.kxf:3:5:
/// ..."
class EFormError : public Exception {
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
