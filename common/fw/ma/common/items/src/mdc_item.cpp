// The item record; filled in by the item implementation.
