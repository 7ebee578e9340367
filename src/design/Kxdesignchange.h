#pragma once
// The one way in which a designer changes a form. Whoever edits components at design time - the inspector,
// the surface, a command - hands what it does to this, and the document that keeps the history implements it.

#include <functional>
#include <string>

namespace kx {

/// What an editor does to a form, for the history.
struct TKxDesignStep {
    std::string Name; ///< as a person reads it in the menu: "Change Color"
    /// Steps that follow one another with the same key, not empty, are one step of the history: the letters
    /// of a text, the moments of a drag.
    std::string MergeKey = {};
};

/// Lets editors change a form.
class TKxDesignChange {
public:
    virtual ~TKxDesignChange() = default;
    /// Calls Change, once and before it returns; what it has changed is one step of the history. Change may
    /// set properties and make and destroy components of the form. What it raises passes through, and the
    /// form is then as it was: a document takes back what Change had done before it failed.
    /// A Change that calls this again is one step with it, of the outer name.
    virtual void Run(const TKxDesignStep& Step, const std::function<void()>& Change) = 0;
};

/// Calls what it is given and keeps nothing: for programs without a history.
class TKxPlainDesignChange : public TKxDesignChange {
public:
    void Run(const TKxDesignStep&, const std::function<void()>& Change) override { Change(); }
};

} // namespace kx
