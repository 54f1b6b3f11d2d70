#ifndef NORQ_TESTS_ALLOCATION_GATE_H
#define NORQ_TESTS_ALLOCATION_GATE_H

// How many allocations succeed before one fails; after that, and below 0, all succeed. Counts
// `operator new` everywhere and, by the linker's wrap option, `malloc` in what is linked
// statically.
extern long allocations_left;

#endif  // NORQ_TESTS_ALLOCATION_GATE_H
