#pragma once

/// An empty statement that the compiler has to take for one that reads and changes `object`, which then
/// stands in a register ("r") or in memory ("m"). No instruction comes of it, and without it the results are
/// the same.
///
/// The block functions need it because an optimiser sees one expression of thousands of terms in them and
/// rearranges it at will: it joins the additions of several subkeys, keeps sums of key and tweak words alive
/// for many rounds, or reorders the rounds, and then has to spill the words of the state. The barriers stand
/// where measurement put them; bench/SkeinBench.cpp shows what a change costs.
#if defined(__GNUC__)
#define KESTRUM_COMPILER_BARRIER(place, object) asm volatile("" : "+" place(object))
#else
#define KESTRUM_COMPILER_BARRIER(place, object) static_cast<void>(object)
#endif
