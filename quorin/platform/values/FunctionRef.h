#pragma once

#include <memory>
#include <type_traits>
#include <utility>

namespace quorin {

template <typename Signature>
class FunctionRef;

/// Refers to a callable for the length of a call: never owns, never allocates, must not be kept.
template <typename Result, typename... Arguments>
class FunctionRef<Result(Arguments...)> {
public:
    template <typename Callable>
    requires(!std::is_same_v<std::remove_cvref_t<Callable>, FunctionRef> &&
             std::is_invocable_r_v<Result, Callable&, Arguments...>)
        FunctionRef(Callable&& callable)  // NOLINT: implicit on purpose, as for std::function
        : object(erased(callable)), call([](void* target, Arguments... arguments) -> Result {
              using Target = std::remove_reference_t<Callable>;
              return static_cast<Result>(
                  (*reinterpret_cast<Target*>(target))(std::forward<Arguments>(arguments)...));
          }) {}

    Result operator()(Arguments... arguments) const {
        return call(object, std::forward<Arguments>(arguments)...);
    }

private:
    template <typename Callable>
    static void* erased(Callable& callable) {
        if constexpr (std::is_function_v<Callable>)
            return reinterpret_cast<void*>(&callable);
        else
            return const_cast<void*>(static_cast<const void*>(std::addressof(callable)));
    }

    void* object;
    Result (*call)(void*, Arguments...);
};

}  // namespace quorin
