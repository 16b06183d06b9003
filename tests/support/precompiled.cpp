// Nothing of its own: this unit exists to compile the precompiled header once.
