# benchmarks of the boost
