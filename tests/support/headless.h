#pragma once
// The host of the tests, and what it shows of a form.

#include <kxgraph/platform/controls/form.h>
#include <kxgraph/platform/host/application.h>
#include <kxgraph/platform/host/headlesshost.h>

namespace kx::test {

inline THeadlessHost& Host() { return dynamic_cast<THeadlessHost&>(TApplication::Instance().GetHost()); }

inline const THeadlessHost::TWindowView& ViewOf(TForm& Form) { return *Host().WindowOf(Form.AsHostClient()); }

} // namespace kx::test
