- (void)draw                                                                                                                 　{
}
- (void)hide {
}
