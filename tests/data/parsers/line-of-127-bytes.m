- (void)draw                                                                                                               　{
}
- (void)hide {
}
