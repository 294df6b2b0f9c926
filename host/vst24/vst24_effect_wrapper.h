#pragma once

#include "host/vst24/audio_effect.h"
#include "host/vst24/parameter_mailbox.h"
#include "host/vst24/reaction_claim.h"

#include <atomic>
#include <memory>
#include <thread>

namespace velmora {
class QORParameterListener;
class VelmoraMonoController;
class VelmoraMonoEffect;
} // namespace velmora

namespace velmora::vst24 {

class QORVST24EditorWrapper;
class QORVST24MasterAudioEffect;
class QORVST24MasterController;

/// The strip as a VST 2.4 effect: owns engine, controller and preset store, and carries parameter changes
/// from whatever thread they come on to the audio thread. No other code knows about VST.
class QORVST24EffectWrapper : public AudioEffectX {
public:
    static constexpr std::int32_t kUniqueId = 0x5171564D; // the bytes "MVqQ" in memory
    static constexpr std::int32_t kVersion = 1200;

    explicit QORVST24EffectWrapper(HostCallback host);
    ~QORVST24EffectWrapper() override;

    void suspend() override;
    void resume() override;
    void setSampleRate(float hz) override;

    /// From the host, on any thread. Ignores what isn't finite, clamps parameters to 0..1.
    void setParameter(std::int32_t id, float value) override;
    float getParameter(std::int32_t id) override;

    void processReplacing(float** in, float** out, std::int32_t frames) override;
    void processDoubleReplacing(double** in, double** out, std::int32_t frames) override;

    void setProgramName(const char* name) override;
    void getProgramName(char* text) override;
    bool getProgramNameIndexed(std::int32_t category, std::int32_t index, char* text) override;
    void getParameterLabel(std::int32_t id, char* text) override;
    void getParameterDisplay(std::int32_t id, char* text) override;
    void getParameterName(std::int32_t id, char* text) override;
    bool canParameterBeAutomated(std::int32_t id) override;
    bool getParameterProperties(std::int32_t id, VstParameterProperties* properties) override;

    std::int32_t getChunk(void** data, bool isPreset) override;
    std::intptr_t setChunk(void* data, std::intptr_t size, bool isPreset) override;

    std::int32_t getPlugCategory() override { return kPlugCategMastering; }
    bool setSpeakerArrangement(VstSpeakerArrangement* in, VstSpeakerArrangement* out) override;
    bool getEffectName(char* text) override;
    bool getVendorString(char* text) override;
    bool getProductString(char* text) override;
    std::int32_t getVendorVersion() override { return kVersion; }

    /// Held while controller and store are touched; works off what other threads left, on the way out.
    class ClaimScope {
    public:
        explicit ClaimScope(QORVST24EffectWrapper& effectWrapper) : wrapper(effectWrapper)
        {
            wrapper.enterClaim();
        }
        ~ClaimScope() { wrapper.leaveClaim(); }
        ClaimScope(const ClaimScope&) = delete;
        ClaimScope& operator=(const ClaimScope&) = delete;

    private:
        QORVST24EffectWrapper& wrapper;
    };

    /// Waits for the claim. Not for the audio thread, unless it holds it already.
    [[nodiscard]] ClaimScope claimReactions() { return ClaimScope(*this); }
    void enterClaim() { claim.enter(); }
    void leaveClaim();

    /// A change that the controller makes in reaction to another: neither host nor controller hears of it.
    void setExactParameter(std::int32_t id, double value);

    QORVST24MasterController& getMasterController() { return *masterController; }

    QORVST24EditorWrapper& getEditorWrapper() { return *editorWrapper; }
    /// The open editor, or null. User interface thread.
    void attachEditor(QORParameterListener* openEditor);
    /// Passes the editor what has changed, and the meters.
    void idleEditor();

private:
    void beginBlock();
    void deferChange(std::int32_t id, float value);
    void processReaction(std::int32_t id, double value, bool accepted);
    void tellEditor(std::int32_t id, double value) noexcept;
    void showEditor(std::int32_t id, double value) noexcept;
    /// A host may create the effect on a thread that runs audio later: who processes is never taken for the
    /// user interface.
    bool onUserInterfaceThread() const
    {
        const std::thread::id self = std::this_thread::get_id();
        return uiThread.load(std::memory_order_relaxed) == self &&
               audioThread.load(std::memory_order_relaxed) != self;
    }

    std::unique_ptr<QORVST24EditorWrapper> editorWrapper;
    // Each speaks to those above it until its end: the order counts, also when construction fails half-way.
    std::unique_ptr<QORVST24MasterAudioEffect> masterAudio;
    std::unique_ptr<QORVST24MasterController> masterController;
    std::unique_ptr<VelmoraMonoController> controller;
    std::unique_ptr<VelmoraMonoEffect> engine;
    QORParameterListener* editor = nullptr;

    ParameterMailbox mailbox;
    std::atomic<bool> commandPending{false};
    ReactionClaim claim;
    PendingIds deferredReactions;
    std::atomic<std::thread::id> uiThread;
    std::atomic<std::thread::id> audioThread; // of the last block
};

} // namespace velmora::vst24
