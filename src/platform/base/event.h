#pragma once
// Events: a method of an object, called later. Two events of the same method are told apart, or not, by a tag
// of the method and the address of the object; code addresses are never compared (a linker may fold them).

#include <functional>
#include <memory>
#include <utility>

namespace kx {

namespace detail {
template <auto Method>
inline char MethodTag = 0;
}

/// A callback with the parameters Args. Empty after construction; calling an empty event does nothing.
template <class... Args>
class TEvent {
public:
    TEvent() = default;
    TEvent(std::nullptr_t) {}

    /// The event that calls Method of Object, e.g. TEvent<int>::Of<&TForm1::Changed>(this). Object is not
    /// owned and must outlive the event's use.
    template <auto Method, class C>
    static TEvent Of(C* Object) {
        TEvent event;
        event.FObject = Object;
        event.FMethod = &detail::MethodTag<Method>;
        event.FThunk = [](void* Self, Args... A) { (static_cast<C*>(Self)->*Method)(A...); };
        return event;
    }

    /// An event from any callable, for a program's handlers. It is identical only to its own copies.
    template <class F>
    requires(!std::is_same_v<std::decay_t<F>, TEvent> && std::is_invocable_v<F&, Args...>) TEvent(F Callable)
        : FCallable(std::make_shared<std::function<void(Args...)>>(std::move(Callable))) {
        FObject = FCallable.get();
        FMethod = FCallable.get();
    }

    explicit operator bool() const { return FMethod != nullptr; }

    void operator()(Args... A) const {
        if (FThunk)
            FThunk(FObject, A...);
        else if (FCallable)
            CallCallable(A...);
    }

    /// Whether both call the same method, of whatever object.
    bool SameMethod(const TEvent& Other) const { return FMethod == Other.FMethod; }
    /// The object whose method is called.
    const void* Object() const { return FObject; }
    friend bool operator==(const TEvent& A, const TEvent& B) {
        return A.FMethod == B.FMethod && A.FObject == B.FObject;
    }

private:
    // Apart, so that the call of a method stays short.
    [[gnu::noinline]] void CallCallable(Args... A) const {
        const auto keep = FCallable; // the handler may replace the event while it runs
        (*keep)(A...);
    }

    void* FObject = nullptr;
    const void* FMethod = nullptr;
    void (*FThunk)(void*, Args...) = nullptr;
    std::shared_ptr<std::function<void(Args...)>> FCallable;
};

} // namespace kx
