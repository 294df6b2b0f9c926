#include "engine/module_factory.h"

#include "modules/compressor/strip_effect_compressor.h"
#include "modules/deesser/strip_effect_deesser.h"
#include "modules/dehummer/strip_effect_dehummer.h"
#include "modules/eq/strip_effect_eq.h"
#include "modules/expander/strip_effect_expander.h"
#include "modules/filters/strip_effect_filters.h"
#include "modules/input/strip_effect_input.h"
#include "modules/limiter/strip_effect_limiter.h"
#include "modules/marlow/strip_effect_marlow.h"
#include "modules/output/strip_effect_output.h"
#include "params/type_codes.h"

namespace velmora {

namespace {

using Make = std::unique_ptr<StripEffect> (*)(const ModuleBases&);

template <typename Module>
std::unique_ptr<StripEffect> make(const ModuleBases& bases)
{
    return std::make_unique<Module>(bases.window, bases.meter, bases.local);
}

constexpr std::int32_t kEveryVariant = 0;

struct ModuleClass {
    ModuleKind kind;
    std::int32_t variant;
    Make make;
};

constexpr ModuleClass kModuleClasses[] = {
    {ModuleKind::Preamp, kEveryVariant, make<StripEffectInput>},
    {ModuleKind::Filters, kEveryVariant, make<StripEffectFilters>},
    {ModuleKind::Dynamics, kEveryVariant, make<StripEffectExpander>},
    {ModuleKind::Compressor, kEveryVariant, make<StripEffectCompressor>},
    {ModuleKind::Equalizer, kEveryVariant, make<StripEffectEq>},
    {ModuleKind::Limiter, kEveryVariant, make<StripEffectLimiter>},
    {ModuleKind::Output, kEveryVariant, make<StripEffectOutput>},
    {ModuleKind::Special, 1, make<StripEffectDeesser>},
    {ModuleKind::Special, 2, make<StripEffectDehummer>},
    {ModuleKind::Special, 3, make<StripEffectMarlow>},
};

std::unique_ptr<StripEffect> build(ModuleKind kind, std::int32_t variant, const ModuleBases& bases)
{
    for (const ModuleClass& row : kModuleClasses)
        if (row.kind == kind && (row.variant == kEveryVariant || row.variant == variant)) return row.make(bases);
    return nullptr;
}

} // namespace

std::unique_ptr<StripEffect> makeFixedModule(Role role, const ModuleBases& bases)
{
    return build(roleWindow(role).kind, kEveryVariant, bases);
}

std::unique_ptr<StripEffect> makeInsertModule(std::int32_t code, const ModuleBases& bases)
{
    const ModuleType* type = findModuleType(code);
    return type != nullptr ? build(type->kind, type->variant, bases) : nullptr;
}

ModuleFactory productModules()
{
    return {makeFixedModule, makeInsertModule};
}

} // namespace velmora
