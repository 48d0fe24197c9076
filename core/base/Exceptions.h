#pragma once

#include <list>
#include <new>
#include <stdexcept>
#include <string>
#include <typeinfo>

/// The exception family of the system.
///
/// Two hierarchies meet in each class: the standard one, so that a handler of `std::exception` sees
/// the message, and `TraceableException`, which carries the locations that the exception has passed.
/// Classes are told apart only where handlers react differently: `OutOfRangeException` around a
/// map's const look-up is ordinary control flow; the others are failures.
namespace Norvelian::Utilities::Exceptions {

/// An exception that knows where it has been: the newest location is last.
class TraceableException {
public:
    virtual ~TraceableException() = default;
    virtual char const* what() const noexcept = 0;

    void AppendToTrace(std::string location) { trace_.push_back(std::move(location)); }
    std::list<std::string> const& GetTrace() const { return trace_; }

    /// Whether `what()` adds the trace to the message. Process-wide, false at first.
    static bool use_implicite_stack_trace();
    static void use_implicite_stack_trace(bool on);

protected:
    TraceableException() = default;
    TraceableException(TraceableException const&) = default;
    TraceableException& operator=(TraceableException const&) = default;

private:
    std::list<std::string> trace_;
};

/// Forwards the text operation to the concrete class.
class TraceableExceptionAdapter : public TraceableException {
public:
    char const* what() const noexcept override { return GetText(); }

protected:
    virtual char const* GetText() const noexcept = 0;
};

/// Holds the message in a standard exception class.
template <class E> class StdExceptionAdapter : public E {
public:
    explicit StdExceptionAdapter(std::string const& message) : E(message) {}

protected:
    char const* GetMessage() const noexcept { return E::what(); }
};

/// The standard classes without a message of their own get one here.
template <class E> class MessageHoldingExceptionAdapter : public E {
public:
    explicit MessageHoldingExceptionAdapter(std::string const& message) : message_(message) {}

protected:
    char const* GetMessage() const noexcept { return message_.c_str(); }

private:
    std::string message_;
};
template <>
class StdExceptionAdapter<std::bad_alloc> : public MessageHoldingExceptionAdapter<std::bad_alloc> {
    using MessageHoldingExceptionAdapter::MessageHoldingExceptionAdapter;
};
template <> class StdExceptionAdapter<std::bad_cast> : public MessageHoldingExceptionAdapter<std::bad_cast> {
    using MessageHoldingExceptionAdapter::MessageHoldingExceptionAdapter;
};
template <>
class StdExceptionAdapter<std::bad_typeid> : public MessageHoldingExceptionAdapter<std::bad_typeid> {
    using MessageHoldingExceptionAdapter::MessageHoldingExceptionAdapter;
};

/// A standard exception that is also traceable.
template <class E> class ExceptionAdapter : public StdExceptionAdapter<E>, public TraceableExceptionAdapter {
public:
    /// A location that isn't empty becomes the first entry of the trace.
    ExceptionAdapter(std::string const& message, std::string const& location)
        : StdExceptionAdapter<E>(message) {
        if (!location.empty()) AppendToTrace(location);
    }

    /// The message; with `use_implicite_stack_trace()`, followed by a newline and one line for each
    /// location. The pointer is valid until the next call on the same object.
    char const* what() const noexcept override { return GetText(); }

protected:
    char const* GetText() const noexcept override {
        if (!use_implicite_stack_trace()) return this->GetMessage();
        try {
            combined_ = this->GetMessage();
            combined_ += '\n';
            for (std::string const& location : GetTrace()) combined_ += location + '\n';
        } catch (...) {
            return this->GetMessage();
        }
        return combined_.c_str();
    }

private:
    mutable std::string combined_;
};

/// A concrete class has the two constructors of its adapter and nothing more.
#define NORVELIAN_EXCEPTION(NAME, BASE)                                                                      \
    class NAME : public BASE {                                                                               \
    public:                                                                                                  \
        explicit NAME(std::string const& message, std::string const& location = {})                          \
            : BASE(message, location) {}                                                                     \
    }

NORVELIAN_EXCEPTION(RuntimeException, ExceptionAdapter<std::runtime_error>);
NORVELIAN_EXCEPTION(OverflowException, ExceptionAdapter<std::overflow_error>);
NORVELIAN_EXCEPTION(UnderflowException, ExceptionAdapter<std::underflow_error>);
NORVELIAN_EXCEPTION(RangeException, ExceptionAdapter<std::range_error>);
NORVELIAN_EXCEPTION(LogicException, ExceptionAdapter<std::logic_error>);
NORVELIAN_EXCEPTION(DomainException, ExceptionAdapter<std::domain_error>);
NORVELIAN_EXCEPTION(InvalidArgumentException, ExceptionAdapter<std::invalid_argument>);
NORVELIAN_EXCEPTION(LengthException, ExceptionAdapter<std::length_error>);
NORVELIAN_EXCEPTION(OutOfRangeException, ExceptionAdapter<std::out_of_range>);
NORVELIAN_EXCEPTION(BadAllocException, ExceptionAdapter<std::bad_alloc>);
NORVELIAN_EXCEPTION(BadCastException, ExceptionAdapter<std::bad_cast>);
NORVELIAN_EXCEPTION(BadTypeidException, ExceptionAdapter<std::bad_typeid>);

/// A service or file that is needed isn't available.
NORVELIAN_EXCEPTION(ResourceException, RuntimeException);
NORVELIAN_EXCEPTION(ResourceNotAvailableException, ResourceException);
/// Raised by the colour library; others only catch it.
NORVELIAN_EXCEPTION(BusinessException, RuntimeException);

#undef NORVELIAN_EXCEPTION

/// A null pointer was used. The message names the pointee's type and not the pointer's value.
class NullPointerException : public RuntimeException {
public:
    template <class T>
    NullPointerException(T const*, std::string const& location)
        : RuntimeException(MessageFor(typeid(T)), location) {}

    static std::string MessageFor(std::type_info const& pointee);
};

} // namespace Norvelian::Utilities::Exceptions

namespace Utilities {

/// A node or array of a container could not be allocated.
class ExceptionNullpointer : public Norvelian::Utilities::Exceptions::NullPointerException {
public:
    explicit ExceptionNullpointer(std::string const& location)
        : ExceptionNullpointer(static_cast<char const*>(nullptr), location) {}
    /// Names the type of what could not be allocated.
    template <class T>
    ExceptionNullpointer(T const* allocated, std::string const& location)
        : NullPointerException(allocated, location) {}
};

/// The plug-in's component factory could not be made.
class ExceptionComponentFactory : public Norvelian::Utilities::Exceptions::ResourceException {
public:
    using ResourceException::ResourceException;
};

} // namespace Utilities
