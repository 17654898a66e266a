// Items a second of what works on drawing objects: spline samples and objects of
// the pre-pass.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <deque>
#include <vector>

#include "document/prepass.hpp"
#include "entities/nurbs.hpp"

namespace {

void SplineSamples(benchmark::State& state) {
  const auto count = static_cast<std::size_t>(state.range(0));
  constexpr std::size_t kDegree = 3;
  std::vector<double> knots(kDegree + 1, 0);
  std::vector<ControlPoint> points;
  for (std::size_t i = 0; i < count; ++i) {
    const auto x = static_cast<double>(i);
    points.push_back({x, x * x, 1});
    if (i >= kDegree) {
      knots.push_back(static_cast<double>(i - kDegree + 1));
    }
  }
  knots.insert(knots.end(), kDegree, knots.back());
  NurbsCurve curve(kDegree, knots, points, state.range(1) != 0);
  const std::size_t samples = 4 * count;
  std::vector<double> parameters;
  for (std::size_t i = 0; i < samples; ++i) {
    parameters.push_back(knots.back() * static_cast<double>(i) / static_cast<double>(samples - 1));
  }
  std::vector<CurvePoint> sampled(samples);
  for (auto _ : state) {
    curve.PointsAt(parameters, sampled);
    benchmark::DoNotOptimize(sampled.data());
    benchmark::ClobberMemory();
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(samples));
}

// Entities of `owners` blocks in stretches of ten.
void PrepassObjects(benchmark::State& state) {
  const auto count = static_cast<std::size_t>(state.range(0));
  const auto owners = static_cast<std::size_t>(state.range(1));
  std::vector<Dwg_Object> objects(count);
  std::deque<Dwg_Object_Entity> entities(count);
  std::deque<Dwg_Object_Ref> references(owners);
  for (std::size_t i = 0; i < owners; ++i) {
    references[i].absolute_ref = 0x100 + i;
  }
  for (std::size_t i = 0; i < count; ++i) {
    objects[i].supertype = DWG_SUPERTYPE_ENTITY;
    objects[i].fixedtype = DWG_TYPE_LINE;
    objects[i].tio.entity = &entities[i];
    entities[i].ownerhandle = &references[i / 10 % owners];
  }
  Dwg_Data dwg{};
  dwg.object = objects.data();
  dwg.num_objects = static_cast<BITCODE_BL>(count);
  for (auto _ : state) {
    benchmark::DoNotOptimize(BuildLookupTables({.data = dwg}));
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(count));
}

}  // namespace

BENCHMARK(SplineSamples)->Args({10, 0})->Args({10, 1})->Args({10000, 0});
BENCHMARK(PrepassObjects)->Args({1000, 1})->Args({100000, 1})->Args({100000, 10000});
