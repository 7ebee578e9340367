#pragma once
// A timer that calls its event on the application's thread.

#include <kxgraph/platform/host/host.h>
#include <kxgraph/platform/objects/component.h>

namespace kx {

class TTimer : public TComponent {
public:
    explicit TTimer(TComponent* Owner);
    ~TTimer() override;

    /// Milliseconds; 0 stops it. Default 1000.
    int GetInterval() const { return FInterval; }
    void SetInterval(int Interval);
    bool GetEnabled() const { return FEnabled; }
    void SetEnabled(bool Enabled);
    TEvent<> OnTimer;

    const TPropertyTable& PublishedProperties() const override { return Properties(); }
    static const TPropertyTable& Properties();

protected:
    bool HearsOfAll() const override { return IsBeyond<TTimer>(); }

private:
    void Restart();
    void Tick();

    std::unique_ptr<THostTimer> FTimer;
    int FInterval = 1000;
    bool FEnabled = true;
};

} // namespace kx
